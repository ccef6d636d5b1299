// Whatever stands in a CSV text, it is refused with a place, or is a whole data set that is written
// and read back as it is.

#include "tests/fuzz/text_fuzzing.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace tambrix;
    fuzzing::checkSetupText(fuzzing::bytesOf(data, size), readSetupCsv, setupCsv);
    return 0;
}
