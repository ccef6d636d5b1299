#pragma once

namespace tambrix {

/// While one lives, a pause ends within a millisecond of its span. Windows else rounds every pause
/// up to a tick of its own, of 8 to 16 ms; other systems do not.
class ShortPauses
{
public:
    ShortPauses();
    ~ShortPauses(); // NOLINT(performance-trivially-destructible): not on Windows
    ShortPauses(const ShortPauses&) = delete;
    ShortPauses& operator=(const ShortPauses&) = delete;
};

} // namespace tambrix
