#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>

// Every test program has an application object, so that forms, events and fonts are the real ones. Without a
// display of its own a test draws on Qt's offscreen platform; a test that needs X starts its own server. Registry files
// and sockets lie in a folder of the test, also for the programs that it starts.
int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    ::testing::InitGoogleTest(&argc, argv);
    const QTemporaryDir folder(QStringLiteral("/tmp/meibo-XXXXXX"));
    qputenv("MEIBO_MACHINE_REGISTRY", folder.filePath(QStringLiteral("machine")).toUtf8());
    qputenv("MEIBO_USER_REGISTRY", folder.filePath(QStringLiteral("user")).toUtf8());
    qputenv("XDG_RUNTIME_DIR", folder.path().toUtf8());
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
