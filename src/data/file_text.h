#pragma once

#include <QString>

#include <string>

namespace tambrix {

/// Text of a file that the plant's own people maintain: UTF-8 where it is valid UTF-8, or else
/// Windows-1252, which is what an editor on a Western Windows PC writes.
QString fileText(const std::string& bytes);

} // namespace tambrix
