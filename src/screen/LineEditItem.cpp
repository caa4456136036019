#include "screen/LineEditItem.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <limits>

#include "screen/EditMenu.h"

namespace {

/// Ctrl+Alt together are AltGr, which types.
bool Types(const QKeyEvent& key) {
    if (key.text().isEmpty()) return false;
    const QChar first = key.text().front();
    const Qt::KeyboardModifiers held = key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    const bool altGr = held == (Qt::ControlModifier | Qt::AltModifier);
    return (held == Qt::NoModifier || altGr) && (first.isPrint() || first.isSurrogate());
}

}  // namespace

LineEditItem::LineEditItem(Form& form, QWidget& parent, QString typeName, QString name, int index)
    : QLineEdit(&parent), Control(form, *this, std::move(typeName), std::move(name), index) {
    SetTabStop(true);
    setAccessibleName(Name());
    // Qt's own limit also cuts what the program writes, so it stays out of the way.
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

void LineEditItem::Paste(QClipboard::Mode mode) { Insert(QGuiApplication::clipboard()->text(mode), false); }

void LineEditItem::keyPressEvent(QKeyEvent* event) {
    const bool paste = event->matches(QKeySequence::Paste);
    if (!paste && !Types(*event)) return QLineEdit::keyPressEvent(event);
    event->accept();
    if (paste) {
        Paste(QClipboard::Clipboard);
    } else {
        Insert(event->text(), true);
    }
}

void LineEditItem::inputMethodEvent(QInputMethodEvent* event) {
    const QString committed = event->commitString();
    if (committed.isEmpty()) return QLineEdit::inputMethodEvent(event);
    QInputMethodEvent endOfComposition;
    endOfComposition.setCommitString(QString(), event->replacementStart(), event->replacementLength());
    QLineEdit::inputMethodEvent(&endOfComposition);
    Insert(committed, true);
    if (event->preeditString().isEmpty()) return;
    QInputMethodEvent nextComposition(event->preeditString(), event->attributes());
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
    // Qt has put the cursor where the press was; a text that has just been entered stays selected.
    if (std::exchange(arrivedByPress_, false) && !hasSelectedText()) selectAll();
    if (rect().contains(event->position().toPoint())) RaiseByUser(Click);
}

void LineEditItem::mouseDoubleClickEvent(QMouseEvent* event) {
    QLineEdit::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton) RaiseByUser(DblClick);
}

void LineEditItem::dropEvent(QDropEvent* event) {
    event->acceptProposedAction();
    // The dropped text has to be accepted some time, which the loss of the focus does.
    RaiseByUser([this] { SetFocus(); });
    deselect();
    setCursorPosition(cursorPositionAt(event->position().toPoint()));
    Insert(event->mimeData()->text(), false);
}
