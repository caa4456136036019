#pragma once

#include <QHash>
#include <QPair>
#include <QString>
#include <QWidget>
#include <functional>
#include <vector>

#include "screen/Control.h"

class QEventLoop;

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

    /// Shows the window and returns when it is hidden or unloaded. Other windows take no input meanwhile.
    void ShowModal();
    void ShowModeless();
    /// Hides the window and ends its ShowModal; controls keep their values.
    void HideForm();
    /// Takes the window away and deletes it later, so that one of its own events may call it. Forms made with new only.
    void UnloadForm();

    std::function<void()> Load;                ///< once, before the window is shown first
    std::function<void()> Closing;             ///< the window's close box; the form itself stays as it is
    std::function<void()> EscapePressed;       ///< Esc anywhere in the window
    std::function<void(int delta)> WheelTurned;  ///< a turn of the wheel anywhere over the window, vertical part

    /// Runs one piece of work started by the user under the trap.
    static void RunEvent(const std::function<void()>& work);

    // For controls.
    void Register(Control& control);
    void Unregister(Control& control);
    /// Drops the focus to nothing, raising nothing, when it lies on the control or inside it.
    void DropFocusFrom(const Control& control);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    void EnsureLoaded();
    void PlaceOverOwner();
    bool CanTakeFocus(const Control& control) const;
    void LetQtFollow(Control& control);
    void DropFocus();
    void RaisePendingFocus();
    Control* ControlOf(const QObject* widget) const;
    bool FilterInput(QWidget& widget, QEvent& event);
    bool FilterKey(QWidget& widget, QKeyEvent& event);
    bool FilterWheel(QWheelEvent& event);
    void NoteQtFocus(const QWidget& widget, Qt::FocusReason reason);

    QString name_;
    bool enabled_ = true;
    bool loaded_ = false;
    Control* activeControl_ = nullptr;
    Control* pendingFocus_ = nullptr;  ///< got Qt's focus by the user; its events are not raised yet
    int focusMoves_ = 0;               ///< tells an outer SetFocus that an inner one has overtaken it
    bool leadingQt_ = false;           ///< Qt's focus is being set by the form itself
    QEventLoop* modalLoop_ = nullptr;
    std::vector<Control*> controls_;
    QHash<QPair<QString, int>, Control*> byName_;
    QHash<const QObject*, Control*> byWidget_;
};

/// All loaded forms, for those who ask whether a window of some name is loaded.
const std::vector<Form*>& LoadedForms();
