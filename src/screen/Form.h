#pragma once

#include <QEvent>
#include <QHash>
#include <QPair>
#include <QString>
#include <QWidget>
#include <functional>
#include <vector>

#include "screen/Control.h"

class QEventLoop;
class QKeyEvent;

/// A window of the program with its controls. It is loaded from its first display until UnloadForm, also while hidden.
///
/// The form tracks the active control and emits LostFocus and GotFocus itself (FormFocus.cpp), even before the window
/// is active; Qt's focus is only set to match. Activation of windows, pop-ups, context menus and message boxes emit
/// neither event. Keys and clicks pass the form first (FormInput.cpp).
///
/// Events started by the user run under the form's error handler: an uncaught exception is shown in a message box
/// (platform::TextForPeople), and nothing is cleaned up.
class Form : public QWidget {
  public:
    explicit Form(QString name);
    ~Form() override;

    const QString& Name() const { return name_; }

    /// The control of that name; `index` is -1 outside a control array. Throws RuntimeError kItemNotFound if there is
    /// none.
    Control& Item(const QString& name, int index = -1) const;
    /// The same, nullptr if there is none.
    Control* Find(const QString& name, int index = -1) const { return byName_.value({name, index}, nullptr); }
    /// All controls in the order of their creation.
    const std::vector<Control*>& Controls() const { return controls_; }

    /// A disabled form takes no key, mouse or wheel input, but its controls are painted as enabled and its close box
    /// works. Disabling leaves no control active and emits nothing.
    bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled);

    Control* ActiveControl() const { return activeControl_; }
    /// Makes the control active: emits LostFocus of the previous one and its GotFocus, synchronously. Ignored if the
    /// form is disabled, or the control is disabled, hidden, inside a disabled or hidden panel, or active already. If
    /// LostFocus moves the focus elsewhere, that move wins.
    void SetFocus(Control& control);
    /// Moves to the next (or previous) tab stop, as the Tab key does: by TabIndex, after the last one to the first.
    /// Without an active control the first (or last) one. Does nothing without tab stops.
    void MoveToNextStop(bool forward);

    /// Window size in twips including a nominal frame of kFrameHeight and kFrameWidth; the real frame belongs to the
    /// desktop and is unknown before the window is shown. The setters fix the size.
    int WindowHeight() const { return height() * kTwipsPerPixel + kFrameHeight; }
    void SetWindowHeight(int twips);
    void SetWindowWidth(int twips);
    static constexpr int kFrameHeight = 420;
    static constexpr int kFrameWidth = 90;

    /// Shows the window as application-modal and returns when it is hidden or unloaded. Emits Load before the first
    /// display, centres the window over the active window or its opener, and makes the first tab stop active if no
    /// control is.
    void ShowModal();
    /// The same, not modal, and returns at once.
    void ShowModeless();
    /// Hides the window and ends its ShowModal; controls keep their values, no control is active.
    void HideForm();
    /// Emits Unload, hides the window and deletes it later, so that its own events may call this. Only for forms
    /// allocated with new.
    void UnloadForm();

    std::function<void()> Load;           ///< once, before the window is first shown
    std::function<void()> Unload;         ///< once, by UnloadForm
    std::function<void()> Closing;        ///< close box; closing the window is up to the handler
    std::function<void()> EscapePressed;  ///< Esc anywhere in the window

    /// Runs a callback started by the user with the error handler above.
    static void RunEvent(const std::function<void()>& callback);

    // For controls.
    /// Adds a control; its TabIndex becomes the number of controls added before.
    void Register(Control& control);
    /// Removes a control that is being destroyed and notifies the observer.
    void Unregister(Control& control);
    /// Leaves no control active, without events, if the active one is the control or inside it.
    void DropFocusFrom(const Control& control);

    /// False while the form, the control or a parent widget of it is disabled.
    bool TakesInput(const Control& control) const;
    /// Emits the pending events of a focus change by mouse or screen reader.
    void FlushFocus();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool focusNextPrevChild(bool next) override;

  private:
    void EnsureLoaded();
    void Present();
    Form* OpenedFrom() const;
    void PlaceOverOwner();
    void EndModal();
    bool CanTakeFocus(const Control& control) const;
    std::vector<Control*> Stops() const;
    Control* ControlAround(const QWidget* widget) const;
    /// Sets Qt's focus to the active control.
    void LetQtFollow();
    void DropFocusInside(const QWidget& around);
    /// Queues the events for a focus change that the user has made in Qt.
    void NoteQtFocus(const QWidget& widget, Qt::FocusReason reason);
    /// Installs the event filter on a widget and its children, also those added later.
    void Watch(QObject& object);
    bool FilterInput(QWidget& widget, QEvent& event);
    bool FilterMouse(QWidget& widget, QEvent::Type type);
    bool FilterKey(QWidget& widget, const QKeyEvent& key);
    bool FilterFormKey(const QKeyEvent& key);

    QString name_;
    bool enabled_ = true;
    bool loaded_ = false;
    bool unloading_ = false;
    bool leadingQt_ = false;  ///< the form is setting Qt's focus
    bool flushQueued_ = false;
    bool pressing_ = false;  ///< a mouse press is being delivered to its widget
    Control* activeControl_ = nullptr;
    Control* pendingFocus_ = nullptr;  ///< got Qt's focus from the user; its events are pending
    Control* arriving_ = nullptr;      ///< active, while LostFocus of the previous control is running
    QEventLoop* modalLoop_ = nullptr;
    std::vector<Control*> controls_;
    QHash<QPair<QString, int>, Control*> byName_;
    QHash<const QWidget*, Control*> byWidget_;
};

/// The loaded form of exactly this name, case-sensitive; nullptr if there is none.
Form* LoadedForm(const QString& name);

/// Callbacks from the forms to the program that uses them. The base class does nothing.
class FormObserver {
  public:
    virtual ~FormObserver() = default;
    /// The control is being destroyed; pointers to it must be cleared.
    virtual void ControlRemoved(const Control& /*control*/) {}
    /// The window that opened `form` and is its owner on the desktop; nullptr if there is none.
    virtual Form* OpenerOf(const Form& /*form*/) { return nullptr; }
};

/// Sets the one observer of all forms, which must outlive them; nullptr for none.
void ObserveForms(FormObserver* observer);
