#pragma once

#include "shell/program_state.h"

#include <QString>

#include <functional>
#include <vector>

namespace tambrix {

/// One line of the system information.
struct SystemFact
{
    QString name;
    QString value;
};

/// What support asks for first: program, system, Qt, screens, folders, serial settings and ports.
/// Creates and changes no file.
std::vector<SystemFact> systemInformation(const ProgramState& state);

/// Reads one text value of the registry; empty when there is none.
using RegistryReader = std::function<QString(const QString& key, const QString& value)>;

/// The real registry on Windows; without values elsewhere.
QString registryText(const QString& key, const QString& value);

/// Path of the system-information tool that the registry names, when that file exists; empty
/// otherwise.
QString systemInfoTool(const RegistryReader& registry);

} // namespace tambrix
