#include "access/CompanyFixture.h"
#include "screen/Form.h"
#include "screen/Labels.h"

using namespace Qt::StringLiterals;

namespace {

class ProgramTitleTest : public WithCompany {
  protected:
    ProgramTitleTest() : form_(u"frm要員名簿照会"_s), panel_(form_, form_, u"prg_ttl"_s, -1, u"前"_s) {
        Globals().MainForm = &form_;
        Globals().Staff.LaunchingStaffCode.clear();
        Office(u"000"_s, u"名称 = '全社'"_s);
        Office(u"001"_s, u"名称 = '大阪支店'"_s);
    }

    QString Title() {
        ShowProgramTitle();
        return panel_.Caption();
    }

  private:
    Form form_;
    Panel panel_;
};

}  // namespace

TEST_F(ProgramTitleTest, ACompanyWithoutOfficesIsNotNamed) {
    EXPECT_EQ(Title(), u"要員名簿照会"_s);
    Globals().Staff.LaunchingStaffCode = u"00001"_s;
    Globals().Staff.StaffName = u"山田　太郎"_s;
    EXPECT_EQ(Title(), u"要員名簿照会「山田　太郎」"_s);
}

TEST_F(ProgramTitleTest, TheWholeOfACompanyWithOfficesIsNamedInHalfWidthBrackets) {
    Globals().OfficeCount = 1;
    EXPECT_EQ(Title(), u"要員名簿照会(全社)"_s);
}

TEST_F(ProgramTitleTest, AnOfficeIsNamedWhateverTheirNumber) {
    Globals().Environment.OperatingOfficeCode = u"001"_s;
    EXPECT_EQ(Title(), u"要員名簿照会(大阪支店)"_s);
    EXPECT_EQ(Globals().OutputOffice.名称, u"大阪支店"_s);
}

TEST_F(ProgramTitleTest, ABlankOfficeNameLeavesNoEmptyBrackets) {
    Globals().Environment.OperatingOfficeCode = u"001"_s;
    Globals().OfficeCount = 1;
    for (const QString& name : {u"''"_s, u"'   '"_s, u"NULL"_s}) {
        Office(u"001"_s, u"名称 = "_s + name);
        EXPECT_EQ(Title(), u"要員名簿照会"_s) << name.toStdString();
    }
}

TEST_F(ProgramTitleTest, TheNameIsTestedTrimmedAndShownUnchanged) {
    Globals().Environment.OperatingOfficeCode = u"001"_s;
    Office(u"001"_s, u"名称 = ' 大阪 '"_s);
    EXPECT_EQ(Title(), u"要員名簿照会( 大阪 )"_s);
    Office(u"001"_s, u"名称 = '　'"_s);
    EXPECT_EQ(Title(), u"要員名簿照会(　)"_s);
}

TEST_F(ProgramTitleTest, AKnownCodeWithoutANameLeavesItsBracketsEmpty) {
    Globals().Staff.LaunchingStaffCode = u"99999"_s;
    EXPECT_EQ(Title(), u"要員名簿照会「」"_s);
}

TEST_F(ProgramTitleTest, MenusGoByTheirShorterNames) {
    struct Case {
        QString id, title;
    };
    for (const Case& c :
         {Case{u"販路推進"_s, u"販路推進"_s}, Case{u"販路推進データ管理"_s, u"データ管理"_s},
          Case{u"販路推進補助機能"_s, u"補助機能"_s}, Case{u"販路推進サービスメニュ"_s, u"サービスメニュー"_s},
          Case{u"販路推進マイメニュ"_s, u"マイメニュー"_s}, Case{u"要員台帳更新"_s, u"要員台帳更新"_s}}) {
        Globals().ProgramId = c.id;
        EXPECT_EQ(Title(), c.title);
    }
}

TEST_F(ProgramTitleTest, AnOfficeThatCannotBeReadAnyMoreIsLeftOut) {
    Globals().Environment.OperatingOfficeCode = u"001"_s;
    General(u"DROP TABLE M事業所"_s);
    EXPECT_EQ(Title(), u"要員名簿照会"_s);
    EXPECT_EQ(History(), QStringList{FailedRow(u"SELECT * FROM M事業所 WHERE コード = '001'"_s)});
}
