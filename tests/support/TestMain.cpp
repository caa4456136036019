#include <gtest/gtest.h>

#include <QApplication>

// Every test program has an application object, so that forms, events and fonts are the real ones. Without a
// display of its own a test draws on Qt's offscreen platform; a test that needs X starts its own server.
int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    ::testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
