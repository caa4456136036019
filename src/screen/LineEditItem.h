#pragma once

#include <QClipboard>
#include <QLineEdit>

#include "screen/Control.h"

class QMenu;

/// What an item has done with an input.
enum class Intake {
    All,      ///< inserted, possibly after a conversion
    Cut,      ///< only the beginning fitted
    Dropped,  ///< characters that the item does not accept were left out
};

/// Base class of the edit items. All input (keys, input method, clipboard, dropped text) goes through Insert; what is
/// lost is shown by ShowInputNotice. An item that does not use the input method reports that, and ignores an unfinished
/// composition, but takes what is committed. The text is selected when the item gets the focus; later clicks select
/// blanks that are the whole text or fill the item up to its limit. Enter moves to the next stop, clicks emit Click and
/// DblClick, the context menu is Japanese. Caption is not shown; it is the accessible description.
class LineEditItem : public QLineEdit, public Control {
  public:
    LineEditItem(Form& form, QWidget& parent, QString typeName, QString name, int index);

    QString Caption() const override { return accessibleDescription(); }
    void SetCaption(const QString& caption) override { setAccessibleDescription(caption); }
    QColor ForeColor() const override;
    void SetForeColor(const QColor& color) override;
    QColor BackColor() const override;
    void SetBackColor(const QColor& color) override;

    void FocusGiven(bool byPress) override;
    bool EnterMovesOn() const override { return true; }

    using QLineEdit::inputMethodQuery;
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

  protected:
    /// False if the input method must stay off: the keys then reach the item as they are typed.
    virtual bool UsesInputMethod() const = 0;
    /// Appends entries to the context menu.
    virtual void AddToMenu(QMenu& /*menu*/) {}
    /// Inserts user input at the cursor, replacing the selection. `composed`: typed by keys or input method, not pasted
    /// or dropped.
    virtual Intake Insert(const QString& text, bool composed) = 0;
    void ShowIntake(Intake intake);
    bool Composing() const { return composing_; }
    /// Cancels the composition of the input method; before the program writes a text.
    void CancelComposition();

    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void Paste(QClipboard::Mode mode);
    void Take(const QString& text, bool composed);
    void TakeTransferred(QString text);
    void SelectPadding();
    void SetColor(QPalette::ColorRole role, const QColor& color);

    bool pressed_ = false;
    bool composing_ = false;       // an unfinished composition is shown
    bool arrivedByPress_ = false;  // the current mouse press has moved the focus here
};
