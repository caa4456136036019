#pragma once

#include <QColor>
#include <QString>
#include <QWidget>
#include <functional>

class Form;

/// Key codes of KeyDown.
inline constexpr int kKeyReturn = 13;
inline constexpr int kKeyControl = 17;
inline constexpr int kKeyEscape = 27;

inline constexpr int kTwipsPerPixel = 15;

/// What a procedure knows of a control. Name, class, enabled, visible, tab stop and tab index are the control's
/// own values, whatever panel it lies in. Every property that a class of control lacks raises
/// platform::RuntimeError kPropertyNotSupported. Places and sizes are twips, relative to the panel around.
///
/// What the program writes raises the same events as what the user does, at once and before the write returns,
/// but only where the value really changes. Events are called directly; the form traps what rises from one that
/// the user started.
class Control {
  public:
    Control(Form& form, QWidget& widget, QString typeName, QString name, int index);
    virtual ~Control();
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    const QString& Name() const { return name_; }
    const QString& TypeName() const { return typeName_; }
    /// Place in its control array, -1 for a control that stands alone.
    int Index() const { return index_; }
    Form& Owner() const { return form_; }
    QWidget& Widget() const { return widget_; }

    bool Enabled() const { return enabled_; }
    /// Disabling the item that has the focus drops the focus to nothing and raises nothing.
    void SetEnabled(bool enabled);
    bool Visible() const { return visible_; }
    void SetVisible(bool visible);
    bool TabStop() const { return tabStop_; }
    void SetTabStop(bool tabStop) { tabStop_ = tabStop; }
    int TabIndex() const { return tabIndex_; }
    void SetTabIndex(int tabIndex) { tabIndex_ = tabIndex; }
    /// Asks the form for the focus; see Form::SetFocus.
    void SetFocus();

    virtual QString Text() const;
    virtual void SetText(const QString& text);
    virtual QString Caption() const;
    virtual void SetCaption(const QString& caption);
    virtual int Value() const;
    virtual void SetValue(int value);
    virtual int MinValue() const;
    virtual int MaxValue() const;
    virtual void SetMinValue(int value);
    virtual void SetMaxValue(int value);
    virtual int ListIndex() const;
    virtual void SetListIndex(int index);
    virtual int LargeChange() const;
    virtual void SetLargeChange(int rows);
    virtual void ClearList();
    virtual void AddItem(const QString& text);
    virtual int MaxLength() const;  ///< characters
    virtual QColor ForeColor() const;
    virtual void SetForeColor(const QColor& color);
    virtual QColor BackColor() const;
    virtual void SetBackColor(const QColor& color);

    int Left() const { return widget_.x() * kTwipsPerPixel; }
    int Top() const { return widget_.y() * kTwipsPerPixel; }
    int Width() const { return widget_.width() * kTwipsPerPixel; }
    int Height() const { return widget_.height() * kTwipsPerPixel; }
    void SetTop(int twips);
    void SetHeight(int twips);

    std::function<void()> GotFocus;
    std::function<void()> LostFocus;
    std::function<void()> Change;
    std::function<void()> Click;
    std::function<void()> DblClick;
    std::function<void(int keyCode)> KeyDown;  ///< only the first press of a key that is held

    // For the form.
    /// The widget that takes keyboard focus for this control: itself, or the edit area inside it.
    virtual QWidget& FocusWidget() const { return widget_; }
    /// The focus has just come here; GotFocus is still to be raised. `byPress`: by a mouse press that the control
    /// has yet to see.
    virtual void FocusGiven(bool /*byPress*/) {}
    /// Enter goes on to the next stop, as Tab does.
    virtual bool EnterMovesOn() const { return false; }

  protected:
    [[noreturn]] void Unsupported(const char* property) const;
    /// Raises an event that Qt reports: under the form's trap, and not at all while the form or the control takes
    /// no input. What the program itself writes calls its event directly instead.
    void RaiseByUser(const std::function<void()>& event);

  private:
    Form& form_;
    QWidget& widget_;
    QString typeName_;
    QString name_;
    int index_;
    bool enabled_ = true;
    bool visible_ = true;
    bool tabStop_ = false;
    int tabIndex_ = -1;
};
