#include "selection/ListWindowFixture.h"

#include <QApplication>

#include "data/Connections.h"

using namespace Qt::StringLiterals;

ListWindowTest::ListWindowTest() {
    ProgramGlobals& globals = Globals();
    globals.ProgramId = u"要員名簿照会"_s;
    globals.Environment.OperatingOfficeCode = globals.ScopeOfficeCode = u"000"_s;
    OpenConfigConnection(ConfigConnectionString(FileKind::Accdb, installation.Configuration().Path()));
    globals.ConfigConnectionOpen = true;
    globals.GeneralDatabase.db = u"A"_s;
    globals.GeneralDatabase.プロバイダ名 = u"Microsoft.ACE.OLEDB.12.0"_s;
    globals.GeneralDatabase.データソース名 = installation.General().Path();
    OpenGeneralConnection();
    globals.MainConnectionOpen = true;
    UseMainForm(u"frm要員名簿照会"_s);
}

ListWindowTest::~ListWindowTest() {
    caller_.reset();
    Globals().MainForm = nullptr;
    qDeleteAll(LoadedForms());  // windows opened from it are still loaded, hidden
}

void ListWindowTest::UseMainForm(const QString& name) {
    Globals().MainForm = nullptr;
    caller_ = std::make_unique<Form>(name);
    caller_->resize(800, 600);
    result_ = new InputItem(*caller_, *caller_, u"xField"_s, u"開始コード"_s, -1, {});
    auto* next = new InputItem(*caller_, *caller_, u"xField"_s, u"終了コード"_s, -1, {});
    next->move(0, 100);
    Globals().MainForm = caller_.get();
    Globals().ListResultItem = result_;
    Globals().ListNextItem = next;
    caller_->ShowModeless();
    result_->SetFocus();
}

void ListWindowTest::Open(const QString& window, const QString& condition, const Works& works) {
    const ModalScript driver(works);
    caller_->SetEnabled(false);
    Globals().ListCondition = condition;
    Globals().ListResultItem = result_;
    Globals().ListNextItem = &caller_->Item(u"終了コード"_s);
    ShowListWindow(window);
}
