#pragma once

#include <QTest>

// Several test classes in one program: each file registers its class with
// ZORBEL_TEST_MAIN, and the program's one main runs them in turn, so a layer's
// tests are linked once rather than once per class.
namespace TestMain {
using Runner = int (*)(int argc, char **argv);
bool add(Runner run);
}

#define ZORBEL_TEST_MAIN(Class)                                                                                       \
    static const bool registered##Class = TestMain::add([](int argc, char **argv) {                                \
        Class test;                                                                                                   \
        return QTest::qExec(&test, argc, argv);                                                                       \
    });
