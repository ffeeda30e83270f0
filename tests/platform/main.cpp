#include <QCoreApplication>
#include <gtest/gtest.h>

// The application object gives the tests what the program has: its folder and its locale.
int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
