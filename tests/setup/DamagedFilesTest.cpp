// Import of files with damaged pages by the real reader process: whatever the library does, the file is either imported
// or rejected with one message and an unchanged installation. The damage is the same in every run.
// tests/fuzz/FuzzImport.cpp fuzzes how this project handles the rows sent by the reader.

#include <gtest/gtest.h>

#include <random>

#include "setup/RunTool.h"
#include "support/FileBytes.h"
#include "support/SampleInstallation.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kFilesOfEachKind = 4;

/// Damages a file in various ways, reproducibly by the seed.
class DamagedFile {
  public:
    DamagedFile(const QString& path, unsigned seed)
        : bytes_(ReadBytes(path)), page_(bytes_[0x14] == 0 ? 2048 : 4096), numbers_(seed) {}

    const QByteArray& Bytes() const { return bytes_; }

    void OverwriteBytes() {
        for (int i = 0; i < 200; ++i) SetByte(Below(bytes_.size()), Byte());
    }
    void OverwriteDefinitions() {
        for (int i = 0; i < 6; ++i) SetByte(PageOfType(2) + Below(page_ / 2), Byte());
    }
    void OverwriteUsageMaps() {
        for (int i = 0; i < 10; ++i) SetByte(page_ + Below(page_), Byte());
    }
    void OverwriteRowTables() {
        for (int i = 0; i < 10; ++i) {
            const qsizetype count = PageOfType(1) + (page_ == 2048 ? 8 : 12);
            const qsizetype entry = count + 2 * Below(20);
            SetByte(entry, Byte());
            SetByte(entry + 1, Byte());
        }
    }
    void SwapPages() {
        for (int i = 0; i < 3; ++i) {
            const qsizetype one = Page(), other = Page();
            const QByteArray kept = bytes_.mid(one, page_);
            bytes_.replace(one, page_, bytes_.mid(other, page_));
            bytes_.replace(other, page_, kept);
        }
    }
    void LinkDefinitionToItself() {
        const qsizetype page = PageOfType(2);
        SetByte(page + 4, static_cast<char>(page / page_));
        SetByte(page + (page_ == 2048 ? 25 : 45), '\xff');
    }
    void CutPages() { bytes_.truncate(Page()); }
    void CutAnywhere() { bytes_.truncate(Below(bytes_.size())); }

  private:
    qsizetype Below(qsizetype limit) { return static_cast<qsizetype>(numbers_() % static_cast<quint64>(limit)); }
    char Byte() { return static_cast<char>(numbers_()); }
    qsizetype Page() { return page_ * (1 + Below(bytes_.size() / page_ - 1)); }
    qsizetype PageOfType(char type) {
        qsizetype page = Page();
        while (bytes_[page] != type) page = page + page_ == bytes_.size() ? page_ : page + page_;
        return page;
    }
    void SetByte(qsizetype at, char byte) { bytes_[at] = byte; }

    QByteArray bytes_;
    qsizetype page_;
    std::mt19937 numbers_;
};

struct Damage {
    const char* name;
    void (DamagedFile::*apply)();
};

class DamagedFiles : public testing::TestWithParam<Damage> {
  protected:
    /// Imports the damaged file; returns the error message, empty on success.
    QString Import(const QByteArray& bytes) {
        const QString file = installation.Root() + u"/damaged"_s;
        WriteBytes(file, bytes);
        const ToolOutput output = RunTool(
            {u"import"_s, installation.Root(), file}, [] { return false; }, QStringLiteral(SUITE_PROGRAMS));
        if (output.status == 0) return {};
        EXPECT_EQ(output.status, 1);
        return output.err;
    }
    QByteArray General() const { return ReadBytes(installation.General().Path()); }

    SampleInstallation installation{{.staff = 1}};
};

INSTANTIATE_TEST_SUITE_P(By, DamagedFiles,
                         testing::Values(Damage{"Bytes", &DamagedFile::OverwriteBytes},
                                         Damage{"Definitions", &DamagedFile::OverwriteDefinitions},
                                         Damage{"UsageMaps", &DamagedFile::OverwriteUsageMaps},
                                         Damage{"RowTables", &DamagedFile::OverwriteRowTables},
                                         Damage{"SwappedPages", &DamagedFile::SwapPages},
                                         Damage{"EndlessDefinitions", &DamagedFile::LinkDefinitionToItself},
                                         Damage{"MissingPages", &DamagedFile::CutPages},
                                         Damage{"ACut", &DamagedFile::CutAnywhere}),
                         [](const auto& damage) { return damage.param.name; });

}  // namespace

TEST_P(DamagedFiles, AreImportedOrRefusedWithOneMessageAndAnUntouchedInstallation) {
    for (const QString& name : {u"general97.mdb"_s, u"general.mdb"_s, u"general.accdb"_s}) {
        for (unsigned seed = 0; seed < kFilesOfEachKind; ++seed) {
            DamagedFile file(QStringLiteral(SUITE_SOURCES) + u"/tests/setup/jet/"_s + name, seed);
            (file.*GetParam().apply)();
            const QByteArray before = General();
            const QString message = Import(file.Bytes());
            if (message.isEmpty()) continue;
            EXPECT_TRUE(message.startsWith(u"suite-setup: "_s) && message.contains(u'。')) << message.toStdString();
            EXPECT_EQ(message.count(u'\n'), 1) << message.toStdString();
            EXPECT_EQ(General(), before) << name.toStdString() << seed;
        }
    }
}
