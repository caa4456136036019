#pragma once

#include <QString>
#include <QStringList>

class Control;
class Form;
class ListView;
class QWidget;

/// Hands at a window: real keys and mouse on controls known by their names.
class FormRobot {
  public:
    explicit FormRobot(Form& form) : form_(form) {}

    Form& Window() const { return form_; }
    Control& Item(const QString& name, int index = -1) const;
    QString Text(const QString& name) const;
    /// Name of the item that has the focus, empty for none.
    QString Focused() const;

    void Click(const QString& item, int index = -1) const;
    void DoubleClick(const QString& item) const;
    /// A key to what has the focus.
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    /// Signs to what has the focus.
    void TypeSigns(const QString& text) const;
    /// Clicks the item and replaces its text by keys.
    void Type(const QString& item, const QString& text) const;
    /// The same, and leaves the item with Tab.
    void Enter(const QString& item, const QString& text) const;

    /// The list of a list window.
    ListView& List() const;
    /// Texts of a list column from top to bottom, counted from 0.
    QStringList Column(int column) const;
    QStringList Codes() const { return Column(0); }
    /// Clicks the code of a row: with Ctrl or Shift to highlight several.
    void ClickRow(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    /// Clicks the check mark of a row.
    void ClickMark(int row) const;
    void ClickMarkOf(const QString& code) const;
    /// Codes of the rows with a check mark, from top to bottom.
    QStringList MarkedCodes() const;
    void ClickTitle(int column) const;

  private:
    QWidget& Receiver() const;
    QRect CellOf(int row) const;

    Form& form_;
};
