#include "support/FormRobot.h"

#include <QApplication>
#include <QHeaderView>
#include <QStyle>
#include <QStyleOptionViewItem>
#include <QtTest/QTest>

#include "platform/RuntimeError.h"
#include "screen/Form.h"
#include "screen/ListView.h"

using namespace Qt::StringLiterals;

std::vector<Form*> LoadedForms() {
    std::vector<Form*> forms;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* form = dynamic_cast<Form*>(widget);
        if (form != nullptr && LoadedForm(form->Name()) == form) forms.push_back(form);
    }
    return forms;
}

Control& FormRobot::Item(const QString& name, int index) const { return form_.Item(name, index); }

QString FormRobot::Text(const QString& name) const { return Item(name).Text(); }

QString FormRobot::Focused() const {
    const Control* active = form_.ActiveControl();
    return active == nullptr ? QString() : active->Name();
}

QWidget& FormRobot::Receiver() const {
    Control* active = form_.ActiveControl();
    return active == nullptr ? static_cast<QWidget&>(form_) : active->FocusWidget();
}

void FormRobot::Click(const QString& item, int index) const {
    QTest::mouseClick(&Item(item, index).FocusWidget(), Qt::LeftButton);
}

void FormRobot::DoubleClick(const QString& item) const {
    Click(item);  // the first press of a double-click moves the focus
    QTest::mouseDClick(&Item(item).FocusWidget(), Qt::LeftButton);
}

void FormRobot::Press(Qt::Key key, Qt::KeyboardModifiers modifiers) const {
    QTest::keyClick(&Receiver(), key, modifiers);
}

void FormRobot::TypeText(const QString& text) const {
    for (const QChar sign : text) QTest::sendKeyEvent(QTest::Click, &Receiver(), Qt::Key_unknown, sign, Qt::NoModifier);
}

void FormRobot::Type(const QString& item, const QString& text) const {
    Click(item);
    QWidget& widget = Item(item).FocusWidget();
    // Not Ctrl+A: Ctrl alone opens a lookup in a code item.
    QTest::keyClick(&widget, Qt::Key_Home);
    QTest::keyClick(&widget, Qt::Key_End, Qt::ShiftModifier);
    QTest::keyClick(&widget, Qt::Key_Delete);
    for (const QChar sign : text) QTest::sendKeyEvent(QTest::Click, &widget, Qt::Key_unknown, sign, Qt::NoModifier);
}

void FormRobot::Enter(const QString& item, const QString& text) const {
    Type(item, text);
    Press(Qt::Key_Tab);
}

ListView& FormRobot::List() const {
    for (Control* control : form_.Controls()) {
        if (control->TypeName() == u"ListView") return static_cast<ListView&>(*control);
    }
    throw platform::RuntimeError(platform::kItemNotFound, u"ListView"_s);
}

QStringList FormRobot::Column(int column) const {
    QStringList texts;
    const ListView& list = List();
    for (int row = 0; row < list.RowCount(); ++row)
        texts << (column == 0 ? list.Row(row).text : list.Row(row).subItems.at(column - 1));
    return texts;
}

void FormRobot::ClickRow(int row, Qt::KeyboardModifiers modifiers) const {
    const QRect cell = CellOf(row);
    QTest::mouseClick(List().viewport(), Qt::LeftButton, modifiers, cell.center());
}

void FormRobot::ClickMark(int row) const {
    ListView& list = List();
    QStyleOptionViewItem option;
    option.initFrom(&list);
    option.rect = CellOf(row);
    option.features = QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDisplay;
    const QRect mark = list.style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, &list);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, mark.center());
}

void FormRobot::ClickMarkOf(const QString& code) const { ClickMark(static_cast<int>(Codes().indexOf(code))); }

QStringList FormRobot::MarkedCodes() const {
    QStringList codes;
    const ListView& list = List();
    for (int row = 0; row < list.RowCount(); ++row) {
        if (list.Checked(row)) codes << list.Row(row).text;
    }
    return codes;
}

/// Scrolls the row into view first.
QRect FormRobot::CellOf(int row) const {
    ListView& list = List();
    const QModelIndex cell = list.model()->index(row, 0);
    list.scrollTo(cell);
    return list.visualRect(cell);
}

void FormRobot::ClickTitle(int column) const {
    const QHeaderView& header = *List().header();
    const QPoint place(header.sectionViewportPosition(column) + header.sectionSize(column) / 2, header.height() / 2);
    QTest::mouseClick(header.viewport(), Qt::LeftButton, Qt::NoModifier, place);
}
