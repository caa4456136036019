#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

#include "platform/FileRights.h"
#include "report-host/DrawnReport.h"
#include "report-host/service/ReportOutput.h"
#include "report-host/template/OutputTarget.h"
#include "support/FileBytes.h"
#include "support/PdfFile.h"
#include "support/PrintService.h"
#include "support/SampleInstallation.h"
#include "support/TestServices.h"

using namespace Qt::StringLiterals;

namespace {

/// The reason of a ReportFailure; empty on success.
template <typename Work>
QString Reason(Work work) {
    try {
        work();
    } catch (const ReportFailure& failure) {
        return failure.Description();
    }
    return {};
}

constexpr QSizeF kA4(210, 297), kA4Across(297, 210), kPostcard(100, 148);

class PrintQueueTest : public ::testing::Test {
  protected:
    /// A PDF of one page in this paper size.
    QString Pdf(QSizeF paper) {
        const QString file = folder.filePath(u"made.pdf"_s);
        DrawnReport report(1, paper);
        WritePdf(report, file);
        return file;
    }
    QString ReasonToPrint(const QString& printer, QSizeF paper = kA4) {
        return Reason([&] { HandToPrinter(Pdf(paper), printer, u"要員名簿照会"_s, paper); });
    }
    static QString PageSize(const QString& pdf) {
        QProcess info;
        info.start(u"pdfinfo"_s, {pdf});
        info.waitForFinished();
        for (const QString& line : QString::fromUtf8(info.readAllStandardOutput()).split(u'\n'))
            if (line.startsWith(u"Page size:"_s)) return line.sliced(10).trimmed();
        return {};
    }

    QTemporaryDir folder;
    PrintService prints;
};

class ReportOutputTest : public ::testing::Test {
  protected:
    QString Forms() const { return installation.ReportFolder() + u"/repfrmdb.accdb"_s; }
    static QStringList Left(const QString& path) {
        return QDir(path).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }
    void ToFolder(const QString& name, const QString& path) const {
        WriteOutputTarget(Forms(), name, {OutputTarget::Kind::Folder, path});
    }

    TestServices services;
    SampleInstallation installation;
    QTemporaryDir folder;
    DrawnReport report{2};
};

}  // namespace

TEST_F(PrintQueueTest, PagesArriveAtThePrinterNamedOnItsPaper) {
    prints.AddPrinter(u"office"_s);
    EXPECT_EQ(ReasonToPrint(u"office"_s), QString());
    EXPECT_TRUE(PageSize(prints.ArrivedFile(u"office"_s)).contains(u"(A4)"_s));
}

TEST_F(PrintQueueTest, PageAcrossIsPrintedOnUprightPaper) {
    prints.AddPrinter(u"office"_s);
    EXPECT_EQ(ReasonToPrint(u"office"_s, kA4Across), QString());
    EXPECT_TRUE(PageSize(prints.ArrivedFile(u"office"_s)).contains(u"(A4)"_s));
}

TEST_F(PrintQueueTest, WithoutANameTheDefaultPrinterPrints) {
    prints.AddPrinter(u"other"_s);
    prints.AddPrinter(u"office"_s);
    EXPECT_EQ(ReasonToPrint({}), u"通常使うプリンターが決められていません。"_s);
    prints.MakeDefault(u"office"_s);
    EXPECT_EQ(ReasonToPrint({}), QString());
    EXPECT_FALSE(prints.Arrived(u"office"_s).isEmpty());
    EXPECT_TRUE(prints.Idle(u"other"_s));
}

TEST_F(PrintQueueTest, UnknownPrinterIsNoDefaultOne) {
    prints.AddPrinter(u"office"_s);
    prints.MakeDefault(u"office"_s);
    EXPECT_EQ(ReasonToPrint(u"gone"_s), u"プリンター「gone」はありません。"_s);
    EXPECT_TRUE(prints.Idle(u"office"_s));
}

TEST_F(PrintQueueTest, PrinterThatRefusesIsReported) {
    prints.AddPrinter(u"office"_s);
    prints.Reject(u"office"_s);
    EXPECT_EQ(ReasonToPrint(u"office"_s), u"プリンター「office」は印刷を受け付けていません。"_s);
    EXPECT_TRUE(prints.Idle(u"office"_s));
}

TEST_F(PrintQueueTest, PaperThatThePrinterLacksIsReportedAndNotReplaced) {
    prints.AddPrinter(u"office"_s);
    EXPECT_EQ(ReasonToPrint(u"office"_s, kPostcard), u"プリンター「office」には 100 × 148 mm の用紙がありません。"_s);
    EXPECT_TRUE(prints.Idle(u"office"_s));
}

TEST(PrintQueue, MissingPrintServiceIsReported) {
    const QByteArray before = qgetenv("CUPS_SERVER");
    qputenv("CUPS_SERVER", "/nowhere/socket");
    EXPECT_EQ(Reason([] { HandToPrinter(u"/nowhere.pdf"_s, u"office"_s, u"t"_s, kA4); }),
              u"印刷サービスに接続できません。"_s);
    qputenv("CUPS_SERVER", before);
    if (before.isNull()) qunsetenv("CUPS_SERVER");
}

TEST_F(ReportOutputTest, FolderTakesThePagesUnderReportAndTime) {
    ToFolder({}, folder.path());
    PrintReport(report, u"要員名簿照会"_s, Forms());
    PrintReport(report, u"要員名簿照会"_s, Forms());
    EXPECT_EQ(Left(folder.path()),
              QStringList({u"要員名簿照会-20261121-093015-2.pdf"_s, u"要員名簿照会-20261121-093015.pdf"_s}));
    EXPECT_TRUE(ReadBytes(folder.filePath(u"要員名簿照会-20261121-093015.pdf"_s)).startsWith("%PDF"));
}

TEST_F(ReportOutputTest, PagesInAFolderOfAGroupBelongToItWhateverTheUmask) {
    ToFolder({}, folder.path());
    const QByteArray path = QFile::encodeName(folder.path());
    for (const mode_t mask : {077, 022, 0}) {
        ASSERT_EQ(::chmod(path.constData(), 02770), 0);
        const mode_t kept = ::umask(mask);
        PrintReport(report, u"要員名簿照会"_s, Forms());
        ::umask(kept);
        const QString pdf = folder.filePath(u"要員名簿照会-20261121-093015.pdf"_s);
        EXPECT_EQ(platform::RightsOf(pdf)->mode, 0660U) << mask;
        EXPECT_EQ(platform::RightsOf(pdf)->group, platform::RightsOf(folder.path())->group);
        QFile::remove(pdf);
    }
}

TEST_F(ReportOutputTest, PagesOfAKilledHostGoWithTheNextPrintAndThoseOfARunningOneStay) {
    ToFolder({}, folder.path());
    const pid_t killed = ::fork();
    if (killed == 0) {
        report.Fails = [](int) -> bool { ::_exit(0); };
        PrintReport(report, u"要員名簿照会"_s, Forms());
    }
    int status = 0;
    ASSERT_EQ(::waitpid(killed, &status, 0), killed);
    ASSERT_EQ(Left(folder.path()).size(), 1) << "the folder of the killed host";
    const QString leftover = Left(folder.path()).first();
    DrawnReport others(1);
    others.Fails = [&](int) {
        PrintReport(report, u"要員名簿照会"_s, Forms());
        return false;
    };
    PrintReport(others, u"要員名簿照会"_s, Forms());
    EXPECT_EQ(Left(folder.path()),
              QStringList({u"要員名簿照会-20261121-093015-2.pdf"_s, u"要員名簿照会-20261121-093015.pdf"_s}));
    EXPECT_TRUE(leftover.startsWith(kPrintFolderPrefix)) << leftover.toStdString();
}

TEST_F(ReportOutputTest, SomebodyElsesPagesAtTheSameMomentStayApart) {
    ToFolder({}, folder.path());
    DrawnReport others(3);
    report.Fails = [&](int page) {
        if (page == 1) PrintReport(others, u"要員名簿照会"_s, Forms());
        return false;
    };
    PrintReport(report, u"要員名簿照会"_s, Forms());
    ASSERT_EQ(Left(folder.path()),
              QStringList({u"要員名簿照会-20261121-093015-2.pdf"_s, u"要員名簿照会-20261121-093015.pdf"_s}));
    EXPECT_EQ(PdfFile(folder.filePath(u"要員名簿照会-20261121-093015.pdf"_s)).Pages(), 3);
    EXPECT_EQ(PdfFile(folder.filePath(u"要員名簿照会-20261121-093015-2.pdf"_s)).Pages(), 2);
}

TEST_F(ReportOutputTest, PagesInAFolderCanBeReadByEverybody) {
    ToFolder({}, folder.path());
    const mode_t kept = ::umask(022);
    PrintReport(report, u"r"_s, Forms());
    ::umask(kept);
    EXPECT_TRUE(QFile::permissions(folder.filePath(Left(folder.path()).value(0))).testFlag(QFile::ReadOther));
}

TEST_F(ReportOutputTest, FailureLeavesNothingInTheFolder) {
    ToFolder({}, folder.path());
    report.Fails = [](int page) { return page == 1; };
    EXPECT_EQ(Reason([&] { PrintReport(report, u"r"_s, Forms()); }), u"作業ファイルを読めません。"_s);
    EXPECT_EQ(Left(folder.path()), QStringList());
}

TEST_F(ReportOutputTest, MissingFolderIsReported) {
    ToFolder({}, folder.filePath(u"gone"_s));
    EXPECT_EQ(Reason([&] { PrintReport(report, u"r"_s, Forms()); }),
              u"出力先のフォルダ「%1」がありません。"_s.arg(folder.filePath(u"gone"_s)));
}

TEST_F(ReportOutputTest, OwnPlaceOfAReportGoesBeforeThatOfAll) {
    ToFolder({}, folder.path());
    WriteOutputTarget(Forms(), u"要員名簿照会はがき"_s, {OutputTarget::Kind::Printer, u"it's cards"_s});
    const OutputTarget cards = ReadOutputTarget(Forms(), u"要員名簿照会はがき"_s);
    EXPECT_EQ(cards.kind, OutputTarget::Kind::Printer);
    EXPECT_EQ(cards.name, u"it's cards"_s);
    EXPECT_EQ(ReadOutputTarget(Forms(), u"要員名簿照会"_s).name, folder.path());
    WriteOutputTarget(Forms(), {}, {});
    EXPECT_EQ(ReadOutputTarget(Forms(), u"要員名簿照会"_s).kind, OutputTarget::Kind::DefaultPrinter);
}

TEST_F(ReportOutputTest, UnknownKindOfPlaceIsReported) {
    ToFolder({}, folder.path());
    SampleFile(Forms()).Execute(u"UPDATE 出力先 SET 種類 = 'FAX'"_s);
    EXPECT_EQ(Reason([&] { PrintReport(report, u"r"_s, Forms()); }), u"出力先の種類「FAX」は使えません。"_s);
}

TEST_F(ReportOutputTest, MissingTemplateFileIsReported) {
    EXPECT_TRUE(Reason([&] {
                    PrintReport(report, u"r"_s, u"/nowhere/repfrmdb.accdb"_s);
                }).startsWith(u"出力先を読めません。"_s));
}
