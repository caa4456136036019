#include "screen/WidgetDialogs.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

namespace {

/// The window that a box lies on. A hidden one is about to be deleted, such as a dialog that has just ended, and would
/// take the box along.
QWidget* Front() {
    QWidget* active = QApplication::activeWindow();
    return active != nullptr && active->isVisible() ? active : nullptr;
}

QMessageBox& Prepare(QMessageBox& box, const QString& text, const QString& title) {
    // A window whose title is empty bears the program's name.
    box.setWindowTitle(title.isEmpty() ? QStringLiteral(" ") : title);
    box.setTextFormat(Qt::PlainText);
    // Messages of the suite end their lines by carriage returns, which Qt would draw as a character.
    box.setText(QString(text).replace(u'\r', u'\n'));
    return box;
}

}  // namespace

void WidgetDialogs::ShowMessage(const QString& text, const QString& title) {
    QMessageBox box(Front());
    Prepare(box, text, title).addButton(QStringLiteral("OK"), QMessageBox::AcceptRole);
    box.exec();
}

bool WidgetDialogs::Confirm(const QString& text, const QString& title) {
    QMessageBox box(Front());
    Prepare(box, text, title).setIcon(QMessageBox::Question);
    const QPushButton* yes = box.addButton(QStringLiteral("はい"), QMessageBox::YesRole);
    box.setEscapeButton(box.addButton(QStringLiteral("いいえ"), QMessageBox::NoRole));
    box.exec();
    return box.clickedButton() == yes;
}

