// On a full disk the tool reports an error and leaves the files that it replaces unchanged.

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "platform/RuntimeError.h"
#include "platform/Services.h"
#include "platform/registry/FileRegistry.h"
#include "report-host/template/TemplateFile.h"
#include "setup/RunTool.h"
#include "setup/sample/Sample.h"
#include "setup/storage/Installer.h"
#include "support/FileBytes.h"
#include "support/FileSizeLimit.h"
#include "support/FullDiskSizes.h"
#include "support/GivenAway.h"
#include "support/SampleInstallation.h"

using namespace Qt::StringLiterals;

namespace {

/// Error message; empty on success.
template <typename Work>
QString FailureOf(Work work) {
    try {
        work();
    } catch (const platform::RuntimeError& error) {
        return error.Description();
    }
    return {};
}

QStringList NamesIn(const QString& folder) {
    return QDir(folder).entryList(QDir::Files | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
}

/// Runs `work` with file size limits up to `size` bytes, with "old" as the content of the file before.
template <typename Work>
void ExpectOldFileKept(const QString& path, qint64 size, Work work) {
    for (const qint64 limit : FullAfter(size)) {
        WriteBytes(path, "old");
        QString failure;
        {
            const FileSizeLimit full(limit);
            failure = FailureOf(work);
        }
        EXPECT_TRUE(failure.contains(path)) << "full after " << limit << ": " << failure.toStdString();
        EXPECT_EQ(ReadBytes(path), "old") << "full after " << limit;
        EXPECT_EQ(NamesIn(QFileInfo(path).path()), QStringList{QFileInfo(path).fileName()});
    }
}

}  // namespace

TEST(FullDiskUnderTheTool, RegistryKeepsItsValuesAndTheToolFails) {
    const QString key = u"HKCU\\Software\\Suite"_s, file = platform::UserRegistryFile();
    QFile::remove(file);
    ASSERT_EQ(RunTool({u"registry"_s, u"set"_s, key, u"Path"_s, u"/a/"_s}).status, 0);
    const QByteArray old = ReadBytes(file);
    for (const qint64 limit : FullAfter(old.size() + 40)) {
        ToolOutput output;
        {
            const FileSizeLimit full(limit);
            output = RunTool({u"registry"_s, u"set"_s, key, u"Other"_s, QString(50, u'b')});
        }
        EXPECT_EQ(output.status, 1) << "full after " << limit;
        EXPECT_EQ(output.err, u"suite-setup: レジストリのファイルに書き込めません。元のままです。\n"_s);
        EXPECT_EQ(ReadBytes(file), old) << "full after " << limit;
    }
}

TEST(FullDiskUnderTheTool, MenuEntryKeepsTheOldOne) {
    const QTemporaryDir folder;
    qputenv("XDG_DATA_HOME", folder.path().toUtf8());
    for (const qsizetype length : {10, 4000, 8000, 17000}) {
        const QString root = u'/' + QString(length, u'r');
        QDir(folder.filePath(u"applications"_s)).removeRecursively();
        const QString path = setup::WriteMenuEntry(root);
        ExpectOldFileKept(path, setup::MenuEntry(root).size(), [&] { setup::WriteMenuEntry(root); });
    }
    qunsetenv("XDG_DATA_HOME");
}

TEST(FullDiskUnderTheTool, ManualKeepsTheOldOne) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a.doc"_s);
    ExpectOldFileKept(path, setup::ManualDocument().size(), [&] { setup::WriteManual(path); });
    setup::WriteManual(path);
    EXPECT_EQ(ReadBytes(path), setup::ManualDocument());
}

TEST(FullDiskUnderTheTool, ProgramKeepsTheOldOne) {
    const QTemporaryDir programs, root;
    const QString source = programs.filePath(u"suite-setup"_s), target = root.filePath(u"prgbin/suite-setup"_s);
    ASSERT_TRUE(QDir().mkdir(root.filePath(u"prgbin"_s)));
    for (const qint64 size : kSizesAroundBuffers) {
        WriteBytes(source, QByteArray(size, 'p'));
        ASSERT_TRUE(QFile::setPermissions(source, QFile::ReadOwner | QFile::ExeOwner));
        ExpectOldFileKept(target, size, [&] { setup::InstallPrograms(programs.path(), root.path()); });
        EXPECT_EQ(setup::InstallPrograms(programs.path(), root.path()), QStringList{u"prgbin/suite-setup"_s});
        EXPECT_EQ(ReadBytes(target), QByteArray(size, 'p'));
        EXPECT_EQ(ModeOf(target), 0500U);
        ASSERT_TRUE(QFile::setPermissions(source, QFile::ReadOwner | QFile::WriteOwner));
        ASSERT_TRUE(QFile::remove(target));
    }
}

TEST(FullDiskUnderTheTool, ExportedFormKeepsTheOldText) {
    const SampleInstallation installation({.staff = 1});
    const QTemporaryDir folder;
    const QString form = u"要員名簿照会"_s, path = folder.filePath(form + u".txt"_s);
    ExpectOldFileKept(path, report::StandardTemplate(form).toUtf8().size(), [&] {
        const ToolOutput output =
            RunTool({u"forms"_s, u"export"_s, installation.Root(), form, u"--folder"_s, folder.path()});
        if (output.status != 0) throw platform::RuntimeError(output.status, output.err);
    });
}
