#include "screen/Form.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QPointer>
#include <QScopeGuard>
#include <QScreen>
#include <QWindow>
#include <algorithm>

#include "platform/RuntimeError.h"
#include "platform/Services.h"
#include "screen/Accessibility.h"
#include "screen/ScreenScale.h"

using namespace Qt::StringLiterals;

namespace {
std::vector<Form*>& Loaded() {
    static std::vector<Form*> forms;
    return forms;
}

FormObserver*& CurrentObserver() {
    static FormObserver* observer = nullptr;
    return observer;
}

FormObserver& Observer() {
    static FormObserver none;
    return CurrentObserver() != nullptr ? *CurrentObserver() : none;
}
}  // namespace

void ObserveForms(FormObserver* observer) { CurrentObserver() = observer; }

Form* LoadedForm(const QString& name) {
    const auto form = std::find_if(Loaded().begin(), Loaded().end(), [&](const Form* f) { return f->Name() == name; });
    return form == Loaded().end() ? nullptr : *form;
}

Form::Form(QString name) : name_(std::move(name)) {
    setObjectName(name_);
    InstallAccessibleForm();
    Watch(*this);
}

Form::~Form() {
    std::erase(Loaded(), this);
    EndModal();
    qDeleteAll(findChildren<QWidget*>(Qt::FindDirectChildrenOnly));  // while they can still unregister
}

Control* Form::ControlAround(const QWidget* widget) const {
    for (; widget != nullptr && widget != this; widget = widget->parentWidget()) {
        if (Control* control = byWidget_.value(widget)) return control;
    }
    return nullptr;
}

void Form::RunEvent(const std::function<void()>& callback) {
    try {
        callback();
    } catch (const std::exception& error) {
        // Exceptions must not propagate through Qt's event loop.
        platform::Services().dialogs->ShowMessage(platform::TextForPeople(error));
    }
}

void Form::Register(Control& control) {
    control.SetTabIndex(static_cast<int>(controls_.size()));
    controls_.push_back(&control);
    byName_.insert({control.Name(), control.Index()}, &control);
    byWidget_.insert(&control.Widget(), &control);
}

void Form::Unregister(Control& control) {
    for (Control** kept : {&activeControl_, &pendingFocus_, &arriving_}) {
        if (*kept == &control) *kept = nullptr;
    }
    std::erase(controls_, &control);
    byName_.remove({control.Name(), control.Index()});
    byWidget_.remove(&control.Widget());
    Observer().ControlRemoved(control);
}

Control& Form::Item(const QString& name, int index) const {
    if (Control* control = Find(name, index)) return *control;
    throw platform::RuntimeError(platform::kItemNotFound, name_ + u": "_s + name);
}

void Form::SetWindowHeight(int twips) { setFixedHeight((twips - kFrameHeight) / kTwipsPerPixel); }
void Form::SetWindowWidth(int twips) { setFixedWidth((twips - kFrameWidth) / kTwipsPerPixel); }

void Form::EnsureLoaded() {
    if (loaded_) return;
    loaded_ = true;
    Loaded().push_back(this);
    if (Load) Load();
}

Form* Form::OpenedFrom() const {
    Form* owner = Observer().OpenerOf(*this);
    return owner == this ? nullptr : owner;
}

/// Centred over the active window, on its screen, or on the primary screen; never partly outside the screen.
void Form::PlaceOverOwner() {
    const QWidget* active = QApplication::activeWindow();
    const QWidget* owner = active != nullptr ? active : OpenedFrom();
    const bool beside = owner != nullptr && owner != this && owner->isVisible();
    const QScreen* screen = beside ? owner->screen() : QGuiApplication::primaryScreen();
    if (screen == nullptr) return;
    const QRect area = screen->availableGeometry();
    const QPoint middle = beside ? owner->frameGeometry().center() : area.center();
    const QSize framed = size() + QSize(kFrameWidth, kFrameHeight) / kTwipsPerPixel;
    const QPoint corner = middle - QPoint(width() / 2, framed.height() / 2);
    const int right = qMax(area.left(), area.right() - (width() + kLargestFrame.width()));
    const int bottom = qMax(area.top(), area.bottom() - (height() + kLargestFrame.height()));
    move(qBound(area.left(), corner.x(), right), qBound(area.top(), corner.y(), bottom));
}

void Form::Present() {
    EnsureLoaded();
    if (unloading_) return;
    if (!isVisible()) PlaceOverOwner();
    const Form* owner = OpenedFrom();
    if (owner != nullptr && owner->windowHandle() != nullptr) {
        winId();  // creates the native window; without a transient parent a dialog may be placed below its owner
        windowHandle()->setTransientParent(owner->windowHandle());
    }
    show();
    if (activeControl_ == nullptr) MoveToNextStop(true);
}

void Form::ShowModeless() { Present(); }

void Form::ShowModal() {
    setWindowModality(Qt::ApplicationModal);
    const QPointer<Form> self(this);
    QEventLoop loop;
    modalLoop_ = &loop;
    const auto leave = qScopeGuard([&] {
        if (self) self->modalLoop_ = nullptr;
    });
    Present();
    // Load or the first GotFocus may have closed the window again.
    if (isVisible()) loop.exec();
}

void Form::EndModal() {
    if (modalLoop_ != nullptr) modalLoop_->quit();
}

void Form::HideForm() {
    DropFocusInside(*this);
    hide();
    EndModal();
}

void Form::UnloadForm() {
    if (unloading_) return;
    unloading_ = true;
    if (Unload) Unload();
    std::erase(Loaded(), this);
    HideForm();
    deleteLater();
}

void Form::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (Closing) RunEvent(Closing);
}
