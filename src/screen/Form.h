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

/// A window of the program with its controls. It keeps its own active control and raises LostFocus and GotFocus
/// by itself, also while the window is not active yet; Qt's focus only follows. Activation of windows, pop-ups,
/// context menus and message boxes raise neither event.
///
/// Every event that the user starts runs under the form's trap: a platform::RuntimeError that nobody caught is
/// shown as a plain message box with its description, and nothing is tidied up.
class Form : public QWidget {
  public:
    explicit Form(QString name);
    ~Form() override;

    const QString& Name() const { return name_; }

    /// The control of that name; RuntimeError when there is none. `index` is -1 outside a control array.
    Control& Item(const QString& name, int index = -1) const;
    Control* Find(const QString& name, int index = -1) const { return byName_.value({name, index}, nullptr); }
    /// All controls in the order in which they were made.
    const std::vector<Control*>& Controls() const { return controls_; }

    /// A disabled form takes no key, no mouse and no wheel; its controls look as before, its close box works.
    /// Disabling drops the focus to nothing and raises nothing.
    bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled);

    Control* ActiveControl() const { return activeControl_; }
    /// Raises LostFocus of the active control and GotFocus of the new one, at once. Does nothing when the form
    /// is disabled, or the control is disabled, hidden, inside a disabled or hidden panel, or active already. A
    /// LostFocus that sends the focus elsewhere wins.
    void SetFocus(Control& control);
    /// The next stop of the tab order behind (or before) the active control, as the Tab key takes it.
    void MoveToNextStop(bool forward);

    /// Height and width of the window in twips, its frame counted as kFrameHeight and kFrameWidth: the real frame is
    /// the desktop's affair and not known before the window stands.
    int WindowHeight() const { return height() * kTwipsPerPixel + kFrameHeight; }
    void SetWindowHeight(int twips);
    void SetWindowWidth(int twips);
    static constexpr int kFrameHeight = 420;
    static constexpr int kFrameWidth = 90;

    /// Shows the window and returns when it is hidden or unloaded. Other windows take no input meanwhile. Where no
    /// control is active yet, the first stop becomes it.
    void ShowModal();
    void ShowModeless();
    /// Hides the window and ends its ShowModal; controls keep their values, the focus drops to nothing.
    void HideForm();
    /// Raises Unload, takes the window away and deletes it later, so that one of its own events may call it. Forms
    /// made with new only.
    void UnloadForm();

    std::function<void()> Load;           ///< once, before the window is shown first
    std::function<void()> Unload;         ///< once, by UnloadForm
    std::function<void()> Closing;        ///< the window's close box; the form itself stays as it is
    std::function<void()> EscapePressed;  ///< Esc anywhere in the window

    /// Runs one piece of work started by the user under the trap.
    static void RunEvent(const std::function<void()>& work);

    // For controls.
    void Register(Control& control);
    void Unregister(Control& control);
    /// Drops the focus to nothing, raising nothing, when it lies on the control or inside it.
    void DropFocusFrom(const Control& control);

    /// False while the form, or anything around the control, is disabled.
    bool TakesInput(const Control& control) const;
    /// Raises what a focus change by mouse or screen reader still owes.
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
    void LetQtFollow();
    void DropFocusInside(const QWidget& around);
    void NoteQtFocus(const QWidget& widget, Qt::FocusReason reason);
    void Watch(QObject& object);
    bool FilterInput(QWidget& widget, QEvent& event);
    bool FilterMouse(QWidget& widget, QEvent::Type type);
    bool FilterKey(QWidget& widget, const QKeyEvent& key);
    bool FilterFormKey(const QKeyEvent& key);

    QString name_;
    bool enabled_ = true;
    bool loaded_ = false;
    bool unloading_ = false;
    bool leadingQt_ = false;  ///< Qt's focus is being set by the form itself
    bool flushQueued_ = false;
    bool pressing_ = false;  ///< a mouse press is on its way to its widget
    Control* activeControl_ = nullptr;
    Control* pendingFocus_ = nullptr;  ///< got Qt's focus by the user; its events are not raised yet
    Control* arriving_ = nullptr;      ///< is active while LostFocus of the one before is still running
    QEventLoop* modalLoop_ = nullptr;
    std::vector<Control*> controls_;
    QHash<QPair<QString, int>, Control*> byName_;
    QHash<const QWidget*, Control*> byWidget_;
};

/// All loaded forms, for those who ask whether a window of some name is loaded.
const std::vector<Form*>& LoadedForms();
/// The loaded form of exactly this name, letter case included; nullptr when there is none.
Form* LoadedForm(const QString& name);
