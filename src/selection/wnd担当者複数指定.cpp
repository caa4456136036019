#include "selection/wnd担当者複数指定.h"

#include "globals/ProgramGlobals.h"
#include "selection/SelectionWindow.h"
#include "text/mod項目編集.h"

using namespace Qt::StringLiterals;

wnd担当者複数指定::wnd担当者複数指定(const TextCondition& condition)
    : Form(condition.selection.window), condition_(condition) {
    BuildValueWindow(*this, condition_);
    Item(u"btn_画面クリア"_s).Click = [this] { ClearEntries(); };
    Control& back = Item(u"btn_戻る"_s);
    back.Click = [this] { Leave(); };
    EscapePressed = Closing = [&back] {
        back.SetFocus();  // commits what an input method is still composing
        back.Click();
    };
    Load = [this] {
        RegisterSelection(Name(), *this);
        ClearEntries();
    };
    Unload = [this] { UnregisterSelection(Name(), *this); };
}

wnd担当者複数指定::~wnd担当者複数指定() { UnregisterSelection(Name(), *this); }

void wnd担当者複数指定::ClearEntries() {
    for (int row = 0; row < kValueRows; ++row) Item(condition_.valueItem, row).SetText(QString());
    Item(u"chb_絞込み"_s).SetValue(0);
}

void wnd担当者複数指定::Leave() {
    Globals().Flags.*condition_.selection.flag = !Entries().isEmpty();
    HideForm();
    ReturnToHead();
}

bool wnd担当者複数指定::Narrowing() const { return Item(u"chb_絞込み"_s).Value() != 0; }

QStringList wnd担当者複数指定::Entries() const {
    QStringList entries;
    for (int row = 0; row < kValueRows; ++row) {
        const QString text = TrimBlanks(Item(condition_.valueItem, row).Text());
        if (!text.isEmpty()) entries << text;
    }
    return entries;
}

QString wnd担当者複数指定::BuildSelectionCondition(const QString& table, const QString& column) const {
    QStringList terms;
    for (const QString& entry : Entries())
        terms << table + u'.' + column + u" LIKE '%"_s + QuoteSqlText(entry) + u"%'"_s;
    if (terms.isEmpty()) return {};
    return u'(' + terms.join(Narrowing() ? u" AND "_s : u" OR "_s) + u')';
}

QString wnd担当者複数指定::DescribeSelection() const {
    const QStringList entries = Entries();
    if (entries.isEmpty()) return {};
    return u"検索"_s + condition_.valueItem + (Narrowing() ? u"(絞込み)："_s : u"："_s) + entries.join(u',');
}

void OpenValueWindow(const TextCondition& text) {
    ProgramGlobals& globals = Globals();
    globals.ListResultItem = &globals.MainForm->Item(text.selection.button);
    globals.ListNextItem = &globals.MainForm->Item(text.item);
    Form* window = LoadedForm(text.selection.window);
    if (window == nullptr) window = new wnd担当者複数指定(text);
    window->ShowModal();
}
