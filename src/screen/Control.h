#pragma once

#include <QColor>
#include <QString>
#include <QWidget>
#include <functional>

class Form;

/// Key codes that KeyDown gets. Letters and digits have the code of their capital in ASCII, F1 to F24 112 to 135; a key
/// without a code gives 0. FormInput.cpp has the other ones.
inline constexpr int kKeyReturn = 13;
inline constexpr int kKeyControl = 17;
inline constexpr int kKeyEscape = 27;

inline constexpr int kTwipsPerPixel = 15;  ///< 1440 per inch at 96 dpi

/// Interface of all controls. Enabled, Visible, TabStop and TabIndex are the control's own values, independent of its
/// panel. A property that a class of control lacks throws platform::RuntimeError kPropertyNotSupported. Positions and
/// sizes are twips relative to the parent widget, in whole pixels.
///
/// Writing a value emits the same event as user input does, synchronously, but only if the value changes. Events are
/// plain callbacks. Exceptions from an event that the user started are caught by the form (Form::RunEvent); those from
/// an event that a write caused propagate to the writer.
class Control {
  public:
    Control(Form& form, QWidget& widget, QString typeName, QString name, int index);
    virtual ~Control();
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    const QString& Name() const { return name_; }
    const QString& TypeName() const { return typeName_; }
    /// Position in its control array, which consists of the controls with the same name; -1 outside an array.
    int Index() const { return index_; }
    Form& Owner() const { return form_; }
    QWidget& Widget() const { return widget_; }

    bool Enabled() const { return enabled_; }
    /// Disabling the active control, or its panel, leaves no control active and emits nothing.
    void SetEnabled(bool enabled);
    bool Visible() const { return visible_; }
    /// Hiding has the same effect on the active control as disabling.
    void SetVisible(bool visible);
    bool TabStop() const { return tabStop_; }
    void SetTabStop(bool tabStop) { tabStop_ = tabStop; }
    /// Initially the order of creation in the form.
    int TabIndex() const { return tabIndex_; }
    void SetTabIndex(int tabIndex) { tabIndex_ = tabIndex; }
    /// See Form::SetFocus.
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
    virtual int MaxLength() const;  ///< UTF-16 units
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
    std::function<void(int keyCode)> KeyDown;  ///< not for the auto-repeat of a key

    // For the form.
    /// The widget that takes the keyboard focus: the control or its edit area.
    virtual QWidget& FocusWidget() const { return widget_; }
    /// Called when the control becomes active, before GotFocus. `byPress`: by a mouse press that has not been delivered
    /// to the control yet.
    virtual void FocusGiven(bool /*byPress*/) {}
    /// True if Enter moves to the next tab stop, as Tab does.
    virtual bool EnterMovesOn() const { return false; }

  protected:
    [[noreturn]] void Unsupported(const char* property) const;
    /// Emits an event caused by user input, with the form's error handler; ignored while the form or the control takes
    /// no input. A setter that the program calls must call the event itself.
    void EmitByUser(const std::function<void()>& event);

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
