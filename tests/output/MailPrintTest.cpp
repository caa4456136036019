#include "output/Outputs.h"

#include "screen/msgお待ち.h"
#include "support/OutputFixture.h"

using namespace Qt::StringLiterals;

namespace {

/// Fake report hosts that record the requested report and the contents of the work tables.
class AskedHosts : public platform::ReportHostLink {
  public:
    explicit AskedHosts(std::function<void(const QString&)> opened) : opened_(std::move(opened)) {}
    std::unique_ptr<platform::ReportHost> Bind(const QString&) override { return std::make_unique<Host>(opened_); }

  private:
    class Host : public platform::ReportHost {
      public:
        explicit Host(std::function<void(const QString&)>& opened) : opened_(opened) {}
        void OpenReport(const QString& report, platform::ReportView view) override {
            opened_(u"%1 %2"_s.arg(report).arg(static_cast<int>(view)));
        }
        void Maximize() override { opened_(u"Maximize"_s); }
        void Quit() override { opened_(u"Quit"_s); }

      private:
        std::function<void(const QString&)>& opened_;
    };

    std::function<void(const QString&)> opened_;
};

struct Piece {
    bool (*run)();
    QString word;
};

const QList<Piece>& Pieces() {
    static const QList<Piece> pieces = {
        {RunEnvelopePrint, u"封筒"_s}, {RunPostcardPrint, u"はがき"_s}, {RunLabelPrint, u"宛名ラベル"_s}};
    return pieces;
}

class MailPrint : public OutputTest {
  protected:
    MailPrint() {
        platform::Services().reportHosts =
            std::make_unique<AskedHosts>([this](const QString& what) { asked.append(what); });
        platform::RegistryKey key;
        platform::Registry& registry = *platform::Services().registry;
        const QString folder = u"/suite/host/OFFICE16/"_s;
        registry.CreateKey(platform::MachineRoot(),
                           u"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\MSACCESS.EXE"_s,
                           platform::kRegistryAll, key);
        registry.SetText(key, u"Path"_s, folder, platform::TwoByteLength(folder));
    }
    ~MailPrint() override { UnloadWaitDialog(); }
    QStringList OutputRows() const { return History().filter(u"出力"_s); }

    QStringList asked;
};

}  // namespace

TEST_F(MailPrint, EachPrintsItsOwnReportAtOnceFromItsOwnTable) {
    AddRows(1);
    for (const Piece& piece : Pieces()) {
        asked.clear();
        piece.run();
        EXPECT_EQ(asked, QStringList({u"要員名簿照会"_s + piece.word + u" 0"_s, u"Quit"_s}));
        EXPECT_FALSE(WorkRows(u"要員名簿照会"_s + piece.word).isEmpty());
        EXPECT_FALSE(Globals().ReportDatabase.IsOpen());
    }
    EXPECT_TRUE(services.dialogs.shown.isEmpty());
    EXPECT_EQ(OutputRows(), QStringList({u"出力開始 印刷"_s, u"出力終了 印刷"_s, u"出力開始 印刷"_s, u"出力終了 印刷"_s,
                                         u"出力開始 印刷"_s, u"出力終了 印刷"_s}));
}

TEST_F(MailPrint, WithoutMarkedRowsEachSaysSoAndAsksForNothing) {
    for (const Piece& piece : Pieces()) {
        services.dialogs.shown.clear();
        piece.run();
        EXPECT_EQ(services.dialogs.Texts(), QStringList{u"印刷情報が有りません"_s}) << piece.word.toStdString();
    }
    EXPECT_TRUE(asked.isEmpty());
    EXPECT_TRUE(OutputRows().isEmpty());
}

TEST_F(MailPrint, WithoutAReportDatabaseEachSaysSo) {
    AddRows(1);
    Globals().Layout.ReportDbKind = FileKind::None;
    for (const Piece& piece : Pieces()) {
        services.dialogs.shown.clear();
        piece.run();
        EXPECT_EQ(services.dialogs.Texts(), QStringList{u"帳票が使用できません。"_s}) << piece.word.toStdString();
    }
    EXPECT_TRUE(asked.isEmpty());
}
