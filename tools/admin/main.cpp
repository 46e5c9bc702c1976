#include "AdminTool.h"

#include <QGuiApplication>
#include <cstring>
#include <memory>

namespace {

// Only a PDF needs fonts, and with them a GUI application. Every other
// command keeps the plain one, which needs no display and adds nothing of
// its own to the tool's output.
bool drawsPdf(int argc, char *argv[])
{
    for (int i = 1; i < argc; ++i)
        if (std::strcmp(argv[i], "--pdf") == 0 || std::strncmp(argv[i], "--pdf=", 6) == 0)
            return true;
    return false;
}

}

int main(int argc, char *argv[])
{
    std::unique_ptr<QCoreApplication> app;
    if (drawsPdf(argc, argv)) {
        // offscreen unless told otherwise, so that it runs from a timer job without a display
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
        app = std::make_unique<QGuiApplication>(argc, argv);
    } else {
        app = std::make_unique<QCoreApplication>(argc, argv);
    }
    QTextStream out(stdout);
    QTextStream err(stderr);
    return AdminTool(out, err).run(QCoreApplication::arguments());
}
