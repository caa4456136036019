#include "data/Files.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

#include "platform/RuntimeError.h"
#include "support/TestServices.h"

using namespace Qt::StringLiterals;

namespace {

/// Fake folders that exist only as names, so that paths of any system can be tested.
class NamedFolders : public platform::LocalFileSystem {
  public:
    NamedFolders(QStringList& made, QStringList existing) : made_(made), existing_(std::move(existing)) {}
    bool FolderExists(const QString& path) const override { return existing_.contains(path) || made_.contains(path); }
    void CreateFolder(const QString& path) const override {
        if (path.endsWith(u"refused"_s)) throw platform::RuntimeError(70, u"書き込む権限がありません。"_s);
        made_.append(path);
    }

  private:
    QStringList& made_;
    QStringList existing_;
};

struct PathCase {
    const char* name;
    QString path;
    QStringList made;
};
void PrintTo(const PathCase& row, std::ostream* out) { *out << row.name; }

class FolderPath : public testing::TestWithParam<PathCase> {
  protected:
    FolderPath() {
        platform::Services().files =
            std::make_unique<NamedFolders>(made, QStringList{u"C:\\old"_s, u"/srv"_s, u"\\\\host\\out\\old"_s});
    }

    TestServices services;
    QStringList made;
};

using FolderPathFailure = FolderPath;

}  // namespace

TEST_P(FolderPath, MakesWhatIsMissingUpToTheLastSeparator) {
    EnsureFolderPath(GetParam().path);
    EXPECT_EQ(made, GetParam().made);
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Of, FolderPath,
    testing::Values(
        PathCase{"Nothing", QString(), {}}, PathCase{"BlanksAlone", u"   "_s, {}},
        PathCase{"Relative", u"a\\b/c.csv"_s, {}}, PathCase{"NameAlone", u"c.csv"_s, {}},
        PathCase{"Drive", u"C:\\a\\b c\\d.csv"_s, {u"C:\\a"_s, u"C:\\a\\b c"_s}},
        PathCase{"DriveWithAnExistingFolder", u"C:\\old\\new\\d.csv"_s, {u"C:\\old\\new"_s}},
        PathCase{"DriveWithAFileInItsRoot", u"C:\\d.csv"_s, {}},
        PathCase{"DriveFolderAndThisPlatformsSeparator", u"C:\\old\\a/d.csv"_s, {u"C:\\old\\a"_s}},
        PathCase{"FolderWithItsSeparator", u"C:\\a\\"_s, {u"C:\\a"_s}},
        PathCase{"FolderWithoutItsSeparator", u"C:\\a"_s, {}},
        PathCase{"Blanks around", u"  C:\\a\\d.csv  "_s, {u"C:\\a"_s}},
        PathCase{"Network", u"\\\\host\\out\\a\\b\\d.csv"_s, {u"\\\\host\\out\\a"_s, u"\\\\host\\out\\a\\b"_s}},
        PathCase{"NetworkWithAnExistingFolder", u"\\\\host\\out\\old\\b\\d.csv"_s, {u"\\\\host\\out\\old\\b"_s}},
        PathCase{"NetworkShareAlone", u"\\\\host\\out\\d.csv"_s, {}},
        PathCase{"NetworkShareWithoutAFile", u"\\\\host\\out"_s, {}}, PathCase{"NetworkServerAlone", u"\\\\host"_s, {}},
        PathCase{"NetworkBeforeDrive", u"C:\\\\host\\out\\a\\d.csv"_s, {u"C:\\\\host\\out\\a"_s}},
        PathCase{"Platform", u"/srv/a/b.d/c.csv"_s, {u"/srv/a"_s, u"/srv/a/b.d"_s}},
        PathCase{"PlatformRoot", u"/c.csv"_s, {}}));

TEST_F(FolderPathFailure, TellsFiveLinesAndEnds) {
    EnsureFolderPath(u"C:\\a\\refused\\b\\c.csv "_s);
    EXPECT_EQ(made, QStringList{u"C:\\a"_s});
    EXPECT_EQ(services.dialogs.Texts(),
              QStringList{u"DIREXISTCHK ERROR70 書き込む権限がありません。\rdirexeistchk\rC:\\a\\refused\\b\\c.csv \r"
                          u"C:\\a\\refused\rFalse"_s});
}

TEST(FolderPathOnDisk, MakesFoldersOfThisPlatform) {
    const TestServices services;
    const QTemporaryDir folder;
    EnsureFolderPath(folder.filePath(u"新 規/二/c.csv"_s));
    EXPECT_TRUE(QDir(folder.filePath(u"新 規/二"_s)).exists());
    EXPECT_FALSE(QDir(folder.filePath(u"新 規/二/c.csv"_s)).exists());
}
