#pragma once

#include "app/appearance.h"

#include <QApplication>

namespace tambrix::bench {

/// The application as main() makes it, in the program's look.
class ProgramApplication : public QApplication
{
public:
    ProgramApplication(int& argc, char** argv) : QApplication(argc, argv)
    {
        applyAppearance(false, Theme::Light);
    }
};

} // namespace tambrix::bench
