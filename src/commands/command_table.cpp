#include "commands/board_commands.h"
#include "commands/data_commands.h"
#include "commands/file_commands.h"
#include "commands/register_commands.h"

namespace tambrix {

const std::vector<Command>& commandTable()
{
    static const std::vector<Command> table = {
        uploadCommand(),  downloadCommand(), compareCommand(),  readCommand(),  writeCommand(),
        watchCommand(),   faultsCommand(),   identifyCommand(), clockCommand(), programCommand(),
        convertCommand(), findCommand(),     portsCommand()};
    return table;
}

} // namespace tambrix
