#include "platform/short_pauses.h"

#ifdef _WIN32
#include <windows.h> // before the header that needs it

#include <timeapi.h>
#endif

namespace tambrix {

#ifdef _WIN32

namespace {
constexpr UINT kPeriod = 1; // ms
}

ShortPauses::ShortPauses()
{
    timeBeginPeriod(kPeriod);
}

ShortPauses::~ShortPauses()
{
    timeEndPeriod(kPeriod);
}

#else

ShortPauses::ShortPauses() = default;
ShortPauses::~ShortPauses() = default;

#endif

} // namespace tambrix
