#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>

// Every test program has a QApplication, so that forms, events and fonts are real. Tests are headless: they use Qt's
// offscreen platform, and a test that needs X starts a server. Registry files and sockets are in a temporary folder,
// also for child processes.
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
