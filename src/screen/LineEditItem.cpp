#include "screen/LineEditItem.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <algorithm>
#include <functional>
#include <limits>

#include "screen/Form.h"
#include "screen/InputNotice.h"

using namespace Qt::StringLiterals;

namespace {

/// Ctrl+Alt is AltGr, which types characters.
bool Types(const QKeyEvent& key) {
    if (key.text().isEmpty()) return false;
    const QChar first = key.text().front();
    const Qt::KeyboardModifiers held = key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    const bool altGr = held == (Qt::ControlModifier | Qt::AltModifier);
    return (held == Qt::NoModifier || altGr) && (first.isPrint() || first.isSurrogate());
}

void AddAction(QMenu& menu, const QString& caption, QKeySequence::StandardKey shortcut, bool enabled,
               const std::function<void()>& run) {
    QAction* action = menu.addAction(caption);
    action->setShortcut(shortcut);
    action->setEnabled(enabled);
    QObject::connect(action, &QAction::triggered, menu.parent(), run);
}

/// Length of the text without the blanks at its end.
int LengthWithoutPadding(const QString& text) {
    const auto last = std::find_if(text.rbegin(), text.rend(), [](QChar c) { return c != u' ' && c != u'\u3000'; });
    return static_cast<int>(text.rend() - last);
}

/// The context menu in Japanese, deleted when it closes. `paste` inserts the clipboard within the item's limits.
QMenu* MakeEditMenu(QLineEdit& edit, const std::function<void()>& paste) {
    auto* menu = new QMenu(&edit);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const bool selected = edit.hasSelectedText();
    const bool readable = selected && edit.echoMode() == QLineEdit::Normal;
    const bool writable = !edit.isReadOnly();
    const bool pasteable = writable && !QGuiApplication::clipboard()->text().isEmpty();
    AddAction(*menu, u"元に戻す(&U)"_s, QKeySequence::Undo, edit.isUndoAvailable(), [&edit] { edit.undo(); });
    menu->addSeparator();
    AddAction(*menu, u"切り取り(&T)"_s, QKeySequence::Cut, readable && writable, [&edit] { edit.cut(); });
    AddAction(*menu, u"ｺﾋﾟｰ(&C)"_s, QKeySequence::Copy, readable, [&edit] { edit.copy(); });
    AddAction(*menu, u"貼り付け(&P)"_s, QKeySequence::Paste, pasteable, paste);
    AddAction(*menu, u"削除(&D)"_s, QKeySequence::Delete, selected && writable, [&edit] { edit.del(); });
    menu->addSeparator();
    AddAction(*menu, u"すべて選択(&A)"_s, QKeySequence::SelectAll, !edit.text().isEmpty(),
              [&edit] { edit.selectAll(); });
    return menu;
}

}  // namespace

LineEditItem::LineEditItem(Form& form, QWidget& parent, QString typeName, QString name, int index)
    : QLineEdit(&parent), Control(form, *this, std::move(typeName), std::move(name), index) {
    SetTabStop(true);
    setAccessibleName(Name());
    // Qt's limit would also truncate text that the program writes.
    setMaxLength(std::numeric_limits<int>::max());
}

void LineEditItem::FocusGiven(bool byPress) {
    arrivedByPress_ = byPress;
    selectAll();
}

QColor LineEditItem::ForeColor() const { return palette().color(QPalette::Active, QPalette::Text); }
void LineEditItem::SetForeColor(const QColor& color) { SetColor(QPalette::Text, color); }
QColor LineEditItem::BackColor() const { return palette().color(QPalette::Active, QPalette::Base); }
void LineEditItem::SetBackColor(const QColor& color) { SetColor(QPalette::Base, color); }

void LineEditItem::SetColor(QPalette::ColorRole role, const QColor& color) {
    if (palette().color(QPalette::Active, role) == color) return;
    QPalette colors = palette();
    colors.setColor(QPalette::Active, role, color);
    colors.setColor(QPalette::Inactive, role, color);
    setPalette(colors);
}

QVariant LineEditItem::inputMethodQuery(Qt::InputMethodQuery query) const {
    // Not by the attribute for it, which QLineEdit ignores.
    const bool enabled = isEnabled() && !isReadOnly() && UsesInputMethod();
    if (query == Qt::ImEnabled) return enabled;
    // Otherwise Qt would pass a PIN to the input method.
    constexpr Qt::InputMethodQueries kTexts =
        Qt::ImSurroundingText | Qt::ImCurrentSelection | Qt::ImTextBeforeCursor | Qt::ImTextAfterCursor;
    if (!enabled && kTexts.testFlag(query)) return {};
    return QLineEdit::inputMethodQuery(query);
}

void LineEditItem::Take(const QString& text, bool composed) {
    if (isReadOnly() || !Owner().TakesInput(*this)) return;
    ShowIntake(Insert(text, composed));
}

/// A copied line or cell of a table ends with a line end or a tab, which is no loss.
void LineEditItem::TakeTransferred(QString text) {
    while (text.endsWith(u'\n') || text.endsWith(u'\r') || text.endsWith(u'\t')) text.chop(1);
    Take(text, false);
}

void LineEditItem::ShowIntake(Intake intake) {
    if (intake == Intake::All)
        ClearInputNotice(Owner());
    else
        ShowInputNotice(Owner(), *this, intake == Intake::Cut);
}

void LineEditItem::CancelComposition() {
    if (!std::exchange(composing_, false)) return;
    QGuiApplication::inputMethod()->reset();
    QInputMethodEvent none;
    QLineEdit::inputMethodEvent(&none);
}

void LineEditItem::Paste(QClipboard::Mode mode) { TakeTransferred(QGuiApplication::clipboard()->text(mode)); }

// Some input methods continue a composition in the next item unless they are asked for its mode.
void LineEditItem::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    QGuiApplication::inputMethod()->update(Qt::ImEnabled);
}

void LineEditItem::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    QGuiApplication::inputMethod()->update(Qt::ImEnabled);
    HideInputNoticeBelow(Owner());
}

void LineEditItem::keyPressEvent(QKeyEvent* event) {
    const bool paste = event->matches(QKeySequence::Paste);
    if (!paste && !Types(*event)) return QLineEdit::keyPressEvent(event);
    event->accept();
    if (paste) {
        Paste(QClipboard::Clipboard);
    } else {
        Take(event->text(), true);
    }
}

void LineEditItem::inputMethodEvent(QInputMethodEvent* event) {
    const bool composes = UsesInputMethod() && !isReadOnly();
    const QString committed = event->commitString();
    const QString preedit = composes ? event->preeditString() : QString();
    composing_ = !preedit.isEmpty();
    if (committed.isEmpty()) {
        // A composition replaces the selection, so an item without one must not see it.
        if (preedit == event->preeditString()) return QLineEdit::inputMethodEvent(event);
        return event->accept();
    }
    QInputMethodEvent endOfComposition;
    endOfComposition.setCommitString(QString(), event->replacementStart(), event->replacementLength());
    QLineEdit::inputMethodEvent(&endOfComposition);
    Take(committed, true);
    if (preedit.isEmpty()) return;
    QInputMethodEvent nextComposition(preedit, event->attributes());
    QLineEdit::inputMethodEvent(&nextComposition);
}

void LineEditItem::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    QMenu* menu = MakeEditMenu(*this, [this] { Paste(QClipboard::Clipboard); });
    AddToMenu(*menu);
    menu->popup(event->globalPos());
}

void LineEditItem::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) pressed_ = true;
    QLineEdit::mousePressEvent(event);
}

void LineEditItem::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::MiddleButton) {
        event->accept();
        deselect();
        if (QGuiApplication::clipboard()->supportsSelection()) Paste(QClipboard::Selection);
        return;
    }
    QLineEdit::mouseReleaseEvent(event);
    if (event->button() != Qt::LeftButton || !std::exchange(pressed_, false)) return;
    // Qt has moved the cursor to the press; an item that just got the focus keeps its text selected.
    const bool arrived = std::exchange(arrivedByPress_, false);
    if (!hasSelectedText()) arrived ? selectAll() : SelectPadding();
    if (rect().contains(event->position().toPoint())) EmitByUser(Click);
}

/// Blanks that fill an item up to its limit, as from a start command, would make it refuse all typing.
void LineEditItem::SelectPadding() {
    const int size = static_cast<int>(text().size());
    const int length = LengthWithoutPadding(text());
    if (length == size || cursorPosition() < length) return;
    if (length == 0 || (MaxLength() > 0 && size >= MaxLength())) setSelection(length, size - length);
}

void LineEditItem::mouseDoubleClickEvent(QMouseEvent* event) {
    QLineEdit::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton) EmitByUser(DblClick);
}

void LineEditItem::dropEvent(QDropEvent* event) {
    event->acceptProposedAction();
    // The text is accepted on LostFocus, so the item must be active.
    EmitByUser([this] { SetFocus(); });
    deselect();
    setCursorPosition(cursorPositionAt(event->position().toPoint()));
    TakeTransferred(event->mimeData()->text());
}
