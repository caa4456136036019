#include "screen/EditMenu.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>

#include "screen/EditItem.h"

using namespace Qt::StringLiterals;

namespace {

struct Entry {
    const char16_t* caption;
    QKeySequence::StandardKey shortcut;
    bool (*enabled)(const EditItem& item);
    void (*run)(EditItem& item);
};

bool CanCopy(const EditItem& item) { return item.hasSelectedText() && item.echoMode() == QLineEdit::Normal; }

constexpr Entry kEntries[] = {
    {u"元に戻す(&U)", QKeySequence::Undo, [](const EditItem& item) { return item.isUndoAvailable(); },
     [](EditItem& item) { item.undo(); }},
    {u"切り取り(&T)", QKeySequence::Cut, CanCopy, [](EditItem& item) { item.cut(); }},
    {u"ｺﾋﾟｰ(&C)", QKeySequence::Copy, CanCopy, [](EditItem& item) { item.copy(); }},
    {u"貼り付け(&P)", QKeySequence::Paste,
     [](const EditItem&) { return !QGuiApplication::clipboard()->text().isEmpty(); },
     [](EditItem& item) { item.Paste(QClipboard::Clipboard); }},
    {u"削除(&D)", QKeySequence::Delete, [](const EditItem& item) { return item.hasSelectedText(); },
     [](EditItem& item) { item.del(); }},
    {u"すべて選択(&A)", QKeySequence::SelectAll, [](const EditItem& item) { return !item.text().isEmpty(); },
     [](EditItem& item) { item.selectAll(); }},
};

}  // namespace

void ShowEditMenu(EditItem& item, const QPoint& globalPlace) {
    auto* menu = new QMenu(&item);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const Entry& entry : kEntries) {
        QAction* action = menu->addAction(QString::fromUtf16(entry.caption));
        action->setShortcut(entry.shortcut);
        action->setEnabled(entry.enabled(item));
        QObject::connect(action, &QAction::triggered, &item, [&item, run = entry.run] { run(item); });
    }
    item.AddToMenu(*menu);
    menu->popup(globalPlace);
}
