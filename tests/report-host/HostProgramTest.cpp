#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QtTest/QTest>

#include <thread>

#include "platform/ReportHostLink.h"
#include "platform/RuntimeError.h"
#include "report-host/layout/PreparedReport.h"
#include "report-host/template/OutputTarget.h"
#include "support/HostProgram.h"
#include "support/PdfFile.h"
#include "support/PrintService.h"
#include "support/SampleInstallation.h"
#include "support/VirtualScreen.h"

using namespace Qt::StringLiterals;
using platform::ReportHost;

namespace {

const QString kList = u"要員名簿照会"_s;

/// The real host program on an installation's template file, with one row in the work table of the list.
class HostProgramTest : public ::testing::Test {
  protected:
    HostProgramTest() {
        installation.Report().Execute(
            u"INSERT INTO 要員名簿照会 (選択条件, コード, 氏名) VALUES ('', '00001', '山田　太郎')"_s);
        WriteOutputTarget(Forms(), {}, {OutputTarget::Kind::Folder, folder.path()});
    }

    QString Forms() const { return installation.ReportFolder() + u"/repfrmdb.accdb"_s; }
    static std::unique_ptr<ReportHost> Bind(const QString& forms) {
        return platform::LocalReportHostLink().Bind(forms);
    }
    std::unique_ptr<ReportHost> Bind() const { return Bind(Forms()); }
    template <typename Work>
    static QString UsageError(Work work) {
        try {
            work();
        } catch (const platform::RuntimeError& error) {
            return error.Description();
        }
        return u"nothing was refused"_s;
    }
    QStringList Printed() const { return QDir(folder.path()).entryList(QDir::Files); }

    SampleInstallation installation;
    QTemporaryDir folder;
};

}  // namespace

TEST_F(HostProgramTest, PrintIsAnsweredWhenThePagesHaveBeenHandedOver) {
    HostProgram host(Forms());
    host.Bind()->OpenReport(kList, platform::ReportView::Print);
    EXPECT_EQ(Printed().size(), 1);
}

TEST_F(HostProgramTest, QuitEndsIt) {
    HostProgram host(Forms());
    host.Bind()->Quit();
    EXPECT_TRUE(host.Ends());
    EXPECT_EQ(host.ExitCode(), 0);
    EXPECT_EQ(UsageError([&] { Bind(); }), u"帳票ホストに接続できません。"_s);
}

TEST_F(HostProgramTest, TemplateThatIsMissingOrHasAnErrorIsReportedInItsAnswer) {
    HostProgram host(Forms());
    const std::unique_ptr<ReportHost> bound = host.Bind();
    EXPECT_TRUE(
        UsageError([&] { bound->OpenReport(u"無い帳票"_s, platform::ReportView::Print); }).contains(u"無い帳票"_s));
    EXPECT_EQ(UsageError([&] { bound->OpenReport(kList, static_cast<platform::ReportView>(1)); }),
              u"帳票の表示方法 1 は使えません。"_s);
    bound->OpenReport(kList, platform::ReportView::Print);
    EXPECT_EQ(Printed().size(), 1);
}

TEST_F(HostProgramTest, TemplateFileThatIsMissingOrBrokenIsReported) {
    const QString broken = folder.filePath(u"broken.accdb"_s);
    ASSERT_TRUE(QFile(broken).open(QIODevice::WriteOnly));
    for (const QString& forms : {u"/nowhere/repfrmdb.accdb"_s, broken}) {
        HostProgram host(forms);
        EXPECT_TRUE(UsageError([&] { host.Bind()->OpenReport(kList, platform::ReportView::Print); }).endsWith(u"。"_s));
    }
}

TEST_F(HostProgramTest, PrinterThatRefusesIsReportedInItsAnswer) {
    PrintService prints;
    prints.AddPrinter(u"office"_s);
    prints.Reject(u"office"_s);
    WriteOutputTarget(Forms(), {}, {OutputTarget::Kind::Printer, u"office"_s});
    HostProgram host(Forms());
    EXPECT_EQ(UsageError([&] { host.Bind()->OpenReport(kList, platform::ReportView::Print); }),
              u"プリンター「office」は印刷を受け付けていません。"_s);
}

TEST_F(HostProgramTest, WhatItPrintsArrivesAtThePrinter) {
    PrintService prints;
    prints.AddPrinter(u"office"_s);
    prints.MakeDefault(u"office"_s);
    WriteOutputTarget(Forms(), {}, {});
    HostProgram host(Forms());
    host.Bind()->OpenReport(kList, platform::ReportView::Print);
    QProcess text;
    text.start(u"pdftotext"_s, {prints.ArrivedFile(u"office"_s), u"-"_s});
    text.waitForFinished();
    EXPECT_TRUE(QString::fromUtf8(text.readAllStandardOutput()).contains(u"山田"_s));
}

TEST_F(HostProgramTest, HostThatDiesWhilePrintingIsReported) {
    HostProgram host(Forms());
    const std::unique_ptr<ReportHost> bound = host.Bind();
    host.Freeze();  // the request has arrived and is never answered
    std::thread death([&host] { host.KillNow(); });
    EXPECT_EQ(UsageError([&] { bound->OpenReport(kList, platform::ReportView::Print); }),
              u"帳票ホストが途中で終了しました。"_s);
    death.join();
}

TEST_F(HostProgramTest, TerminationRequestEndsALongPrintAndLeavesNoFile) {
    installation.Report().Execute(
        u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 200000) "
        u"INSERT INTO 要員名簿照会 (選択条件, コード, 氏名) SELECT '', '00002', '山田　花子' FROM n"_s);
    HostProgram host(Forms());
    const std::unique_ptr<ReportHost> bound = host.Bind();
    const auto entries = [this] {
        return QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    };
    std::thread administrator([&] {
        while (entries().isEmpty()) QThread::msleep(10);
        host.Terminate();
    });
    EXPECT_EQ(UsageError([&] { bound->OpenReport(kList, platform::ReportView::Print); }),
              u"帳票の作成を中止しました。"_s);
    administrator.join();
    EXPECT_TRUE(host.Ends());
    EXPECT_EQ(entries(), QStringList());
}

TEST_F(HostProgramTest, QuitsWhenItsClientIsGoneAndNoWindowIsOpen) {
    HostProgram host(Forms());
    host.Bind();
    EXPECT_TRUE(host.Ends());
}

TEST_F(HostProgramTest, PreviewStaysWhenItsCallerIsGone) {
    HostProgram host(Forms());
    {
        const std::unique_ptr<ReportHost> bound = host.Bind();
        bound->OpenReport(kList, platform::ReportView::Preview);
        bound->Maximize();
    }
    Bind();  // other clients are served as well
    EXPECT_TRUE(host.Runs());
    Bind()->Quit();
    EXPECT_TRUE(host.Ends());
}

TEST_F(HostProgramTest, MaximisedPreviewFillsAScreenWithoutWindowManager) {
    const VirtualScreen screen;
    ASSERT_FALSE(screen.Display().isEmpty());
    HostProgram host(Forms(), screen.Display());
    const std::unique_ptr<ReportHost> bound = host.Bind();
    bound->OpenReport(kList, platform::ReportView::Preview);
    const QString window = screen.NewestOf(1);
    EXPECT_NE(screen.SizeOf(window), QSize(1152, 864));
    bound->Maximize();
    EXPECT_TRUE(QTest::qWaitFor([&] { return screen.SizeOf(window) == QSize(1152, 864); }, 20000));
}

// End-to-end through the print service for each kind of mail piece: complete, on its own paper, not rotated or scaled.
TEST_F(HostProgramTest, MailPiecesArriveAtThePrinterOnTheirOwnPaper) {
    PrintService prints;
    prints.AddMailPrinter(u"tray"_s);
    WriteOutputTarget(Forms(), {}, {OutputTarget::Kind::Printer, u"tray"_s});
    HostProgram host(Forms());
    const std::unique_ptr<ReportHost> bound = host.Bind();
    for (const auto& [piece, page] : {std::pair{u"封筒"_s, QSizeF(120, 235)}, {u"はがき"_s, QSizeF(100, 148)}}) {
        installation.Report().Execute(
            u"INSERT INTO 要員名簿照会%1 (コード, 名称B, 郵便番号) VALUES ('00001', '山田　太郎 様', '530-0001')"_s.arg(
                piece));
        bound->OpenReport(kList + piece, platform::ReportView::Print);
        const PdfFile arrived(prints.ArrivedFile(u"tray"_s));
        ASSERT_EQ(arrived.Pages(), 1) << piece.toStdString();
        const QImage sheet = arrived.Picture(0);
        EXPECT_NEAR(sheet.width(), page.width() * PdfFile::kDotsPerMillimetre, 5) << piece.toStdString();
        EXPECT_NEAR(sheet.height(), page.height() * PdfFile::kDotsPerMillimetre, 5) << piece.toStdString();
        const QRectF lastBox(page.width() - 13.7, 12, 5.7, 8);
        EXPECT_NEAR(InkWithin(sheet, lastBox).center().x(), lastBox.center().x(), 0.5) << piece.toStdString();
        EXPECT_NEAR(InkWithin(sheet, lastBox).center().y(), lastBox.center().y(), 0.5) << piece.toStdString();
        prints.Clear(u"tray"_s);
    }
}
