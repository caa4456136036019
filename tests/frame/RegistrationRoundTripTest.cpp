// The inquiry and the registration program in separate processes, linked by a click on a row.

#include <QFile>
#include <QScopeGuard>
#include <QTest>

#include <thread>

#include "globals/ProgramGlobals.h"
#include "screen/Form.h"
#include "support/LinkAnswers.h"
#include "support/MainFormFixture.h"
#include "support/VirtualScreen.h"
#include "text/TimeStamp.h"

using namespace Qt::StringLiterals;

namespace {

const QColor kSaved(0, 128, 0);

class RegistrationRoundTrip : public MainFormTest {
  protected:
    void SetUp() override {
        ASSERT_FALSE(screen.Display().isEmpty());
        ASSERT_TRUE(QFile::link(QStringLiteral(SUITE_PROGRAMS "/要員台帳更新"),
                                installation.ProgramFolder() + u"/要員台帳更新"_s));
        Start();
        platform::Services().processes = std::make_unique<platform::LocalProcessService>();
    }

    /// Clicks the row by mouse. Meanwhile a thread runs `work` with the registration program's window.
    void Register(int position, const std::function<bool(const QString& window)>& work) {
        const QByteArray display = qgetenv("DISPLAY"), platformName = qgetenv("QT_QPA_PLATFORM");
        const auto back = qScopeGuard([&] {
            qputenv("DISPLAY", display);
            qputenv("QT_QPA_PLATFORM", platformName);
        });
        qputenv("DISPLAY", screen.Display().toLatin1());
        qputenv("QT_QPA_PLATFORM", "xcb");
        services.clock.now = QDateTime::currentDateTime();
        const QString key = Globals().ScopeOfficeCode + Item(u"担当者コード"_s, position).Text();
        bool worked = false;
        std::thread clerk([&] {
            const QString window = screen.NewestOf(1);
            worked = !window.isEmpty() && work(window);
            // Otherwise the wait would never end.
            if (!worked) AddLinkRow(installation.Configuration(), {.sentAt = u"99991231 000000"_s, .key = key});
        });
        Click(u"担当者名"_s, position);
        clerk.join();
        ASSERT_TRUE(worked) << "the registration program could not be worked";
        EXPECT_TRUE(MainForm().Enabled());
        EXPECT_EQ(LinkRows(installation.Configuration()), QList<QStringList>());
    }

    VirtualScreen screen;
};

}  // namespace

TEST_F(RegistrationRoundTrip, ANameChangedByKeysShowsInItsRowInTheColourOfASave) {
    constexpr int kPosition = 2;
    const QStringList codes = Column(u"担当者コード"_s), names = Column(u"担当者名"_s);
    Register(kPosition, [this](const QString& window) {
        // Backwards from the first item: 終了, 削除, 保存.
        return screen.Press(window, {u"ctrl+a"_s}) && screen.Type(window, u"Tanaka Ichiro"_s) &&
               screen.Press(window, {u"shift+Tab"_s, u"shift+Tab"_s, u"shift+Tab"_s, u"space"_s});
    });
    QStringList expected = names;
    expected[kPosition] = u"Tanaka Ichiro"_s;
    EXPECT_EQ(Column(u"担当者名"_s), expected);
    EXPECT_EQ(Column(u"担当者コード"_s), codes);
    EXPECT_EQ(Item(u"担当者コード"_s, kPosition).ForeColor(), kSaved);
    EXPECT_EQ(installation.General().Value(
                  u"SELECT 閲覧区分 FROM T閲覧 WHERE キー項目 = '%1' AND 担当者コード = '00001'"
                  u" ORDER BY 閲覧日付 DESC, 閲覧時刻 DESC, 閲覧区分 DESC LIMIT 1"_s.arg(codes[kPosition])),
              u"1"_s);
}

TEST_F(RegistrationRoundTrip, ADeletedPersonIsGoneFromTheListAndTheNumbersKeepTheirGap) {
    constexpr int kPosition = 3;
    QStringList codes = Column(u"担当者コード"_s);
    const int rows = Globals().LastRow;
    Register(kPosition, [this](const QString& window) {
        if (!screen.Press(window, {u"shift+Tab"_s, u"shift+Tab"_s, u"space"_s})) return false;
        const QString question = screen.NewestOf(2);
        return !question.isEmpty() && screen.Press(question, {u"y"_s});
    });
    EXPECT_EQ(Globals().LastRow, rows - 1);
    EXPECT_EQ(Column(u"行No"_s), (QStringList{u"1"_s, u"2"_s, u"3"_s, u"5"_s, u"6"_s, u"7"_s, u"8"_s, u"9"_s}));
    const QString gone = codes.takeAt(kPosition);
    EXPECT_EQ(Column(u"担当者コード"_s).first(codes.size()), codes);
    EXPECT_EQ(installation.General().Value(u"SELECT COUNT(*) FROM M担当者 WHERE コード = '%1'"_s.arg(gone)), u"0"_s);
}
