// The real program is terminated while it waits for a report host that never answers.

#include <gtest/gtest.h>

#include <QFile>
#include <QtTest/QTest>

#include "globals/ProgramGlobals.h"
#include "screen/Form.h"
#include "setup/storage/Installer.h"
#include "support/MainFormFixture.h"
#include "support/SuiteUser.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kScreenHeight = 864;  // of a virtual screen

class ReportEndTest : public MainFormTest {
  protected:
    ReportEndTest() {
        const QString host = setup::ReportHostFolder(suite.Root()) + u"MSACCESS.EXE"_s;
        if (!QFile::remove(host) || !QFile::copy(QStringLiteral(TEST_PROGRAMS "/silent-host"), host))
            throw std::runtime_error("cannot install the host");
    }

    /// Starts printing and waits until the host has received the request for the report.
    void OrderPrint(SuiteUser& user) {
        Start({}, kScreenHeight);
        const QWidget& button = Item(u"btn_印刷"_s).FocusWidget();
        user.Click(button.mapTo(&MainForm(), button.rect().center()));
        user.SayYes();
        const QString asked = user.Own(u"report/repfrmdb.accdb"_s).Path() + u".asked"_s;
        ASSERT_TRUE(QTest::qWaitFor([&] { return QFile::exists(asked); }, 20000));
    }
    static QStringList History(const SuiteUser& user) {
        QStringList rows;
        for (const QStringList& row :
             user.Own(u"conf/usrcnfg.accdb"_s).Rows(u"SELECT 摘要 FROM プログラム稼動履歴 ORDER BY proccounter"_s))
            rows.append(row.first());
        return rows;
    }

    const SharedSuite suite{3};
};

}  // namespace

TEST_F(ReportEndTest, TerminationRequestEndsTheProgramInOrder) {
    SuiteUser user(suite, SuiteUser::Who::Runner);
    user.StartProgram({});
    user.AwaitList();
    ASSERT_NO_FATAL_FAILURE(OrderPrint(user));
    user.EndProgram();
    EXPECT_EQ(History(user).mid(History(user).size() - 2), QStringList({u"出力開始 印刷"_s, u"終了"_s}));
}

TEST_F(ReportEndTest, CloseBoxEndsTheProgramInOrder) {
    SuiteUser user(suite, SuiteUser::Who::Runner);
    user.StartProgram({});
    user.AwaitList();
    ASSERT_NO_FATAL_FAILURE(OrderPrint(user));
    user.CloseProgram();
    EXPECT_EQ(History(user).mid(History(user).size() - 2), QStringList({u"出力開始 印刷"_s, u"終了"_s}));
}
