#pragma once

#include <QString>
#include <QStringList>
#include <vector>

class Control;
class Form;
class ListView;
class QWidget;

/// All loaded forms, hidden ones included.
std::vector<Form*> LoadedForms();

/// Sends real key and mouse events to the named controls of a window.
class FormRobot {
  public:
    explicit FormRobot(Form& form) : form_(form) {}

    Form& Window() const { return form_; }
    Control& Item(const QString& name, int index = -1) const;
    QString Text(const QString& name) const;
    /// Name of the active control; empty if there is none.
    QString Focused() const;

    void Click(const QString& item, int index = -1) const;
    void DoubleClick(const QString& item) const;
    /// Sends a key to the active control.
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    /// Types characters into the active control.
    void TypeText(const QString& text) const;
    /// Clicks the item and replaces its text by keys.
    void Type(const QString& item, const QString& text) const;
    /// The same, and leaves the item with Tab.
    void Enter(const QString& item, const QString& text) const;

    /// The list of a list window.
    ListView& List() const;
    /// Texts of a 0-based list column from top to bottom.
    QStringList Column(int column) const;
    QStringList Codes() const { return Column(0); }
    /// Clicks the code of a row; Ctrl or Shift highlights several rows.
    void ClickRow(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    /// Clicks the check box of a row.
    void ClickMark(int row) const;
    void ClickMarkOf(const QString& code) const;
    /// Codes of the checked rows from top to bottom.
    QStringList MarkedCodes() const;
    void ClickTitle(int column) const;

  private:
    QWidget& Receiver() const;
    QRect CellOf(int row) const;

    Form& form_;
};
