#include <QCoreApplication>
#include <gtest/gtest.h>

// The application object gives the tests what the program has: its folder, and a locale in UTF-8, into which ODBC's
// driver manager turns texts for a driver without wide functions.
int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
