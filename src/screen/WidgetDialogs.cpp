// Part of SuiteApplication.h: the message boxes of WidgetDialogs.

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

#include "screen/SuiteApplication.h"

namespace {

/// Parent window of a box. A hidden window, such as a dialog that has just closed, is about to be deleted and would
/// delete the box with it.
QWidget* Front() {
    QWidget* active = QApplication::activeWindow();
    return active != nullptr && active->isVisible() ? active : nullptr;
}

QMessageBox& Prepare(QMessageBox& box, const QString& text, const QString& title) {
    // With an empty title Qt would show the program's name.
    box.setWindowTitle(title.isEmpty() ? QStringLiteral(" ") : title);
    box.setTextFormat(Qt::PlainText);
    // The suite's messages use carriage returns as line breaks, which Qt would draw as a character.
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
    QPushButton* yes = box.addButton(QStringLiteral("はい"), QMessageBox::YesRole);
    QPushButton* no = box.addButton(QStringLiteral("いいえ"), QMessageBox::NoRole);
    yes->setShortcut(Qt::Key_Y);
    no->setShortcut(Qt::Key_N);
    box.setDefaultButton(defaultAnswer == Answer::Yes ? yes : no);
    box.setEscapeButton(no);
    box.exec();
    return box.clickedButton() == yes;
}
