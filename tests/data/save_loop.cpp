// Saves two data sets into one file in turn, until it is killed: tests_shell kills it in the
// middle. save_loop FILE [COUNT]; prints a line after each save; ends with 1 when one failed.
#include "tests/data/save_loop.h"

#include "data/whole_file.h"

#include <QFile>

#include <cstdio>
#include <cstdlib>

int main(int argc, char* argv[])
{
    if (argc < 2)
        return 2;
    const QString file = QFile::decodeName(argv[1]);
    const int saves = argc > 2 ? std::atoi(argv[2]) : 1'000'000;
    for (int save = 0; save < saves; ++save) {
        if (const auto error = tambrix::writeWholeFile(file, tambrix::savedContent(save))) {
            std::printf("%s\n", qPrintable(*error));
            return 1;
        }
        std::printf("saved\n");
        std::fflush(stdout);
    }
    return 0;
}
