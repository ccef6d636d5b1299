#pragma once

#include "data/setup_file.h"

#include <QByteArray>

namespace tambrix {

/// The set-up file that the save loop writes at its `save`-th turn: even and odd ones differ in
/// every value and in length.
inline QByteArray savedContent(int save)
{
    const bool odd = save % 2 != 0;
    SetupDataRecord record = defaultSetupData(odd ? "TAMBRIX_R1.0.0" : "TAMBRIX_R1.0.0 (old)");
    for (std::int32_t& value : record.Value)
        value = odd ? 0x11111111 : 0x22222222;
    return QByteArray::fromStdString(setupFileBytes(record));
}

} // namespace tambrix
