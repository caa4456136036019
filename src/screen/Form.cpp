#include "screen/Form.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QScreen>

#include <algorithm>

#include "platform/RuntimeError.h"
#include "platform/Services.h"

using namespace Qt::StringLiterals;

namespace {
std::vector<Form*>& Loaded() {
    static std::vector<Form*> forms;
    return forms;
}
}  // namespace

const std::vector<Form*>& LoadedForms() { return Loaded(); }

Form::Form(QString name) : name_(std::move(name)) {
    setObjectName(name_);
    qApp->installEventFilter(this);
}

Form::~Form() {
    qApp->removeEventFilter(this);
    std::erase(Loaded(), this);
    if (modalLoop_ != nullptr) modalLoop_->quit();
    qDeleteAll(findChildren<QWidget*>(Qt::FindDirectChildrenOnly));  // while the form can still be told
}

void Form::RunEvent(const std::function<void()>& work) {
    try {
        work();
    } catch (const platform::RuntimeError& error) {
        platform::Services().dialogs->ShowMessage(error.Description());
    }
}

void Form::Register(Control& control) {
    controls_.push_back(&control);
    byName_.insert({control.Name(), control.Index()}, &control);
    byWidget_.insert(&control.Widget(), &control);
}

void Form::Unregister(Control& control) {
    if (activeControl_ == &control) activeControl_ = nullptr;
    if (pendingFocus_ == &control) pendingFocus_ = nullptr;
    std::erase(controls_, &control);
    byName_.remove({control.Name(), control.Index()});
    byWidget_.removeIf([&control](const auto& entry) { return entry.value() == &control; });
}

Control& Form::Item(const QString& name, int index) const {
    if (Control* control = Find(name, index)) return *control;
    throw platform::RuntimeError(platform::kItemNotFound, name_ + u": "_s + name);
}

void Form::SetEnabled(bool enabled) {
    if (!enabled) DropFocus();
    enabled_ = enabled;
}

void Form::SetWindowHeight(int twips) { setFixedHeight((twips - kFrameHeight) / kTwipsPerPixel); }
void Form::SetWindowWidth(int twips) { setFixedWidth((twips - kFrameWidth) / kTwipsPerPixel); }

void Form::EnsureLoaded() {
    if (loaded_) return;
    loaded_ = true;
    Loaded().push_back(this);
    if (Load) Load();
}

/// In the middle of the window in front, or of the screen, and never with its title off the screen.
void Form::PlaceOverOwner() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (screen == nullptr) return;
    const QRect area = screen->availableGeometry();
    const QWidget* owner = QApplication::activeWindow();
    const QPoint middle = owner != nullptr && owner != this ? owner->frameGeometry().center() : area.center();
    const QPoint corner = middle - QPoint(width() / 2, (height() + kFrameHeight / kTwipsPerPixel) / 2);
    const int right = qMax(area.left(), area.right() - width());
    const int bottom = qMax(area.top(), area.bottom() - height());
    move(qBound(area.left(), corner.x(), right), qBound(area.top(), corner.y(), bottom));
}

void Form::ShowModal() {
    EnsureLoaded();
    PlaceOverOwner();
    setWindowModality(Qt::ApplicationModal);
    show();
    QEventLoop loop;
    modalLoop_ = &loop;
    loop.exec();
    modalLoop_ = nullptr;
}

void Form::ShowModeless() {
    EnsureLoaded();
    if (!isVisible()) PlaceOverOwner();
    show();
}

void Form::HideForm() {
    DropFocus();
    hide();
    if (modalLoop_ != nullptr) modalLoop_->quit();
}

void Form::UnloadForm() {
    HideForm();
    std::erase(Loaded(), this);
    loaded_ = false;
    deleteLater();
}

void Form::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (Closing) RunEvent(Closing);
}
