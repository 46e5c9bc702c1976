#include "TestMain.h"

#include <QApplication>
#include <vector>

namespace {

std::vector<TestMain::Runner> &runners()
{
    static std::vector<TestMain::Runner> all;
    return all;
}

}

bool TestMain::add(Runner run)
{
    runners().push_back(run);
    return true;
}

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    app.setAttribute(Qt::AA_Use96Dpi, true);
    int failed = 0;
    for (TestMain::Runner run : runners())
        failed += run(argc, argv) != 0;
    return failed ? 1 : 0;
}
