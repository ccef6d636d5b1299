#pragma once

#include <QString>

namespace tambrix {

/// Why something could not be done, as one sentence for the user.
struct Refusal
{
    QString reason;
};

} // namespace tambrix
