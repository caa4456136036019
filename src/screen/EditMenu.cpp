#include "screen/EditMenu.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMenu>

using namespace Qt::StringLiterals;

namespace {

void Add(QMenu& menu, const QString& caption, QKeySequence::StandardKey shortcut, bool enabled,
         const std::function<void()>& run) {
    QAction* action = menu.addAction(caption);
    action->setShortcut(shortcut);
    action->setEnabled(enabled);
    QObject::connect(action, &QAction::triggered, menu.parent(), run);
}

}  // namespace

QMenu* MakeEditMenu(QLineEdit& edit, const std::function<void()>& paste) {
    auto* menu = new QMenu(&edit);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const bool selected = edit.hasSelectedText();
    const bool readable = selected && edit.echoMode() == QLineEdit::Normal;
    const bool pasteable = !QGuiApplication::clipboard()->text().isEmpty();
    Add(*menu, u"元に戻す(&U)"_s, QKeySequence::Undo, edit.isUndoAvailable(), [&edit] { edit.undo(); });
    menu->addSeparator();
    Add(*menu, u"切り取り(&T)"_s, QKeySequence::Cut, readable, [&edit] { edit.cut(); });
    Add(*menu, u"ｺﾋﾟｰ(&C)"_s, QKeySequence::Copy, readable, [&edit] { edit.copy(); });
    Add(*menu, u"貼り付け(&P)"_s, QKeySequence::Paste, pasteable, paste);
    Add(*menu, u"削除(&D)"_s, QKeySequence::Delete, selected, [&edit] { edit.del(); });
    menu->addSeparator();
    Add(*menu, u"すべて選択(&A)"_s, QKeySequence::SelectAll, !edit.text().isEmpty(), [&edit] { edit.selectAll(); });
    return menu;
}
