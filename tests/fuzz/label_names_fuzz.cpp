// Whatever stands in a file of label names, the reader tells where it is wrong, or gives names
// that are saved and read back as they are.

#include "tests/fuzz/text_fuzzing.h"

using namespace tambrix;
using namespace tambrix::fuzzing;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray text = bytesOf(data, size);
    const auto read = readLabelNamesCsv(text);
    if (const auto* fault = std::get_if<TextFault>(&read)) {
        requireInside(text, *fault);
        return 0;
    }
    const auto& names = std::get<LabelNames>(read);
    for (int label = 0; label < kLabels; ++label) {
        const QString& name = names.of(label);
        require(name.size() <= LabelNames::kLongest && name == name.simplified());
    }
    require(std::get<LabelNames>(readLabelNamesCsv(labelNamesCsv(names))) == names);
    return 0;
}
