// Two users of the machine run the real program at the same time in one installation with private copies.

#include <gtest/gtest.h>

#include <QMap>

#include "data/ReportHostTrust.h"
#include "globals/ProgramGlobals.h"
#include "platform/registry/FileRegistry.h"
#include "screen/Form.h"
#include "setup/storage/Installer.h"
#include "support/HostProgram.h"
#include "support/MainFormFixture.h"
#include "support/PdfFile.h"
#include "support/SuiteUser.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kScreenHeight = 864;  // of a virtual screen

QString StartCommand(const QString& fromStaff, const QString& toStaff) {
    return u"000"_s + u"000999"_s + u"000999"_s + u"0099"_s + fromStaff + toStaff;
}

class TwoUsers : public MainFormTest {
  protected:
    TwoUsers() { suite.General().Execute(u"UPDATE M担当者 SET 氏名 = '要員' || コード, 在籍区分 = '0'"_s); }

    /// Centre of a button in the program's window.
    QPoint PlaceOf(const QString& button) {
        if (Globals().MainForm == nullptr) Start({}, kScreenHeight);
        const QWidget& widget = Item(button).FocusWidget();
        return widget.mapTo(&MainForm(), widget.rect().center());
    }
    void Print(SuiteUser& user) {
        user.Click(PlaceOf(u"btn_印刷"_s));
        user.SayYes();
        ASSERT_EQ(user.Printed().size(), 1);
    }
    /// The people on the user's single printed page, from top to bottom.
    static QStringList PeoplePrinted(const SuiteUser& user) {
        QMap<double, QString> people;
        for (const PdfWord& word : PdfFile(user.Printed().value(0)).Find(0, u"要員0"_s))
            people.insert(word.place.top(), word.text);
        return people.values();
    }
    static QStringList WorkRows(const SampleFile& workTables) {
        QStringList people;
        for (const QStringList& row : workTables.Rows(u"SELECT 氏名 FROM 要員名簿照会 ORDER BY rowid"_s))
            people.append(row.first());
        return people;
    }
    /// The first trusted location of the user's host.
    QString TrustedBy(const SuiteUser& user) const {
        platform::FileRegistry registry(suite.MachineRegistry(), user.RegistryFile());
        QString buffer(255, u' ');
        int length = 255;
        registry.GetValue(platform::UserRoot(), TrustedLocationsKey(u"16.0"_s) + u"\\Location0"_s, u"Path"_s,
                          platform::kRegistryTextType, buffer, length);
        return buffer.first(length - 1);
    }

    const SharedSuite suite{6};
};

}  // namespace

TEST_F(TwoUsers, OfOneInstallationPrintTheirOwnRowsFromTheirOwnCopies) {
    SuiteUser runner(suite, SuiteUser::Who::Runner), nobody(suite, SuiteUser::Who::Nobody);
    ASSERT_NE(runner.Name(), nobody.Name());
    runner.StartProgram(StartCommand(u"00001"_s, u"00002"_s));
    nobody.StartProgram(StartCommand(u"00003"_s, u"00006"_s));
    runner.AwaitList();
    nobody.AwaitList();
    ASSERT_NO_FATAL_FAILURE(Print(runner));
    ASSERT_NO_FATAL_FAILURE(Print(nobody));

    const QStringList first{u"要員00001"_s, u"要員00002"_s};
    const QStringList others{u"要員00003"_s, u"要員00004"_s, u"要員00005"_s, u"要員00006"_s};
    EXPECT_EQ(PeoplePrinted(runner), first);
    EXPECT_EQ(PeoplePrinted(nobody), others);
    EXPECT_EQ(WorkRows(runner.Own(u"report/repdb.accdb"_s)), first);
    EXPECT_EQ(WorkRows(nobody.Own(u"report/repdb.accdb"_s)), others);
    EXPECT_EQ(WorkRows(SampleFile(suite.Root() + u"/report/repdb.accdb"_s)), QStringList());

    for (SuiteUser* user : {&runner, &nobody}) {
        user->EndProgram();
        EXPECT_EQ(TrustedBy(*user), suite.Root() + u"/users/"_s + user->Name() + u"/report/"_s);
        EXPECT_EQ(user->Own(u"conf/usrcnfg.accdb"_s).Rows(u"SELECT DISTINCT ユーザID FROM プログラム稼動履歴"_s),
                  QList<QStringList>{{user->Name()}});
    }
    EXPECT_EQ(ProcessesOf(setup::ReportHostFolder(suite.Root()) + u"MSACCESS.EXE"_s), QList<qint64>());
}
