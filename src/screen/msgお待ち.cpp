#include "screen/msgお待ち.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLocale>
#include <QPointer>
#include <QWindow>

#include "platform/Services.h"
#include "screen/Labels.h"
#include "screen/PendingInput.h"
#include "screen/fonts/Fonts.h"

using namespace Qt::StringLiterals;

namespace {

using namespace std::chrono_literals;

constexpr int kPaintTimeout = 300;  // milliseconds
constexpr auto kProgressAfter = 500ms;
constexpr auto kProgressEvery = 100ms;

const QString kName = u"msgお待ち"_s;

/// The dialog while it is loaded, otherwise null.
msgお待ち* Dialog() { return static_cast<msgお待ち*>(LoadedForm(kName)); }

/// The display server exposes the window later than one iteration of events; without waiting it would stay blank for
/// the whole job. User input stays queued.
void PaintNow(const QPointer<QWidget>& window) {
    QElapsedTimer elapsed;
    elapsed.start();
    while (window && window->windowHandle() != nullptr && !window->windowHandle()->isExposed() &&
           elapsed.elapsed() < kPaintTimeout)
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, 10);
    if (window) window->repaint();
}

}  // namespace

msgお待ち::msgお待ち() : Form(kName), shown_(platform::Services().clock->Elapsed()) {
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
    setWindowTitle(u"要員名簿照会"_s);
    setAttribute(Qt::WA_ShowWithoutActivating);
    auto* title = new Panel(*this, *this, u"itm_ttl"_s, -1, u"要員名簿照会"_s);
    title->setFont(SuiteFont(SuiteFace::PGothic, 12));
    title->SetBackColor(kCaptionColor);
    title->setGeometry(8, 8, 324, 32);
    auto* message = new Label(*this, *this, u"lab_msg"_s, -1, u"しばらくお待ちください。"_s);
    message->setFont(SuiteFont(SuiteFace::PGothic, 12));
    message->SetEdgeless();
    message->setAlignment(Qt::AlignCenter);
    message->setGeometry(8, 52, 324, 36);
    progress_ = new Label(*this, *this, u"lab_件数"_s, -1, QString());
    progress_->setFont(SuiteFont(SuiteFace::PGothic, 10));
    progress_->SetEdgeless();
    progress_->setAlignment(Qt::AlignCenter);
    progress_->setGeometry(8, 88, 324, 24);
    setFixedSize(340, 120);
    Load = [this] { SetWindowTop(*this); };
}

void msgお待ち::ShowProgress(const QString& job, int done, int count) {
    const auto now = platform::Services().clock->Elapsed();
    if (now - shown_ <= kProgressAfter || now - painted_ < kProgressEvery) return;
    painted_ = now;
    const QLocale numbers(QLocale::Japanese, QLocale::Japan);
    progress_->SetCaption(job + u' ' + numbers.toString(done) + u" / "_s + numbers.toString(count) + u" 件"_s);
    progress_->repaint();
}

void SetWindowTop(QWidget& window) { window.raise(); }

void ShowWaitDialog() {
    msgお待ち* dialog = Dialog() != nullptr ? Dialog() : new msgお待ち;
    dialog->ShowModeless();
    const InputBlock block;  // a second click must not start the job inside itself
    platform::ProcessEvents();
    PaintNow(Dialog());
}

void PaintProgress(const QString& job, int done, int count) {
    if (msgお待ち* dialog = Dialog()) dialog->ShowProgress(job, done, count);
}

void UnloadWaitDialog() {
    if (msgお待ち* dialog = Dialog()) dialog->UnloadForm();
}
