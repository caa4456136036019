#include "report-host/preview/PreviewWindow.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QFileInfo>
#include <QLabel>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <algorithm>

#include "platform/RuntimeError.h"
#include "platform/Services.h"
#include "platform/TerminationSignal.h"
#include "report-host/layout/PreparedReport.h"
#include "report-host/preview/FontNotice.h"
#include "report-host/preview/PageView.h"
#include "report-host/preview/RenderEvents.h"
#include "report-host/render/RenderWatch.h"
#include "report-host/service/ReportOutput.h"
#include "screen/Accessibility.h"
#include "screen/PendingInput.h"

using namespace Qt::StringLiterals;

namespace {

constexpr double kSmallest = 0.1, kLargest = 4.0, kStep = 1.25;
constexpr int kMessageTime = 8000;  // milliseconds in the status bar
constexpr int kPollInterval = 50;   // milliseconds between polls of the close box while a job runs
constexpr int kManagerTime = 500;   // milliseconds for a window manager to maximise a window
constexpr QSize kUsualSize(980, 720);

// The first two are recomputed when the window is resized.
const QStringList kFits{u"ページ全体"_s, u"ページの幅"_s};
constexpr int kPercents[] = {25, 50, 75, 100, 150, 200, 400};

}  // namespace

PreviewWindow::PreviewWindow(std::unique_ptr<PreparedReport> report, QString name, QString templateFile)
    : report_(std::move(report)), name_(std::move(name)), templateFile_(std::move(templateFile)) {
    setObjectName(u"preview"_s);
    setWindowTitle(name_ + u" - プレビュ"_s);
    MakeView();
    MakeToolBar();
    notice_ = new FontNotice(*report_);
    statusBar()->addWidget(notice_, 1);
    resize(kUsualSize.boundedTo(screen()->availableSize()));
    TurnTo(0);
}

PreviewWindow::~PreviewWindow() {
    // View and notice use report_, which would otherwise be destroyed first.
    delete area_;
    delete notice_;
}

void PreviewWindow::FillScreen() {
    showMaximized();
    // Without a window manager nothing maximises the window. With one, the difference is at most the frame.
    QTimer::singleShot(kManagerTime, this, [this] {
        const QRect available = screen()->availableGeometry();
        if (isMaximized() && width() < available.width()) setGeometry(available);
    });
}

void PreviewWindow::MakeView() {
    view_ = new PageView(*report_);
    view_->RunSlowJob = [this](const std::function<void()>& paint) { RunJob(paint, {}); };
    area_ = new QScrollArea;
    area_->setObjectName(u"area"_s);
    area_->setFocusPolicy(Qt::NoFocus);  // the page has it, so that screen readers can name it
    area_->setAlignment(Qt::AlignCenter);
    area_->setBackgroundRole(QPalette::Mid);
    area_->setWidget(view_);
    setCentralWidget(area_);
    // The frame around the view shows the focus of the page.
    connect(qApp, &QApplication::focusChanged, area_, [this] { area_->update(); });
    view_->setFocus();
}

QAction* PreviewWindow::AddAction(QToolBar& bar, const QString& name, const QString& caption,
                                  const QList<QKeySequence>& keys, const std::function<void()>& job) {
    QAction* action = bar.addAction(caption);
    action->setObjectName(name);
    action->setShortcuts(keys);
    if (!keys.isEmpty())
        action->setToolTip(caption + u"（"_s + keys.first().toString(QKeySequence::NativeText) + u"）"_s);
    connect(action, &QAction::triggered, this, job);
    // By default tool bar buttons do not accept the focus.
    bar.widgetForAction(action)->setFocusPolicy(Qt::TabFocus);
    return action;
}

void PreviewWindow::MakeToolBar() {
    QToolBar& bar = *addToolBar(u"操作"_s);
    bar.setMovable(false);
    bar.setContextMenuPolicy(Qt::PreventContextMenu);
    AddAction(bar, u"print"_s, u"印刷"_s, {QKeySequence::Print}, [this] { Print(); });
    AddAction(bar, u"save"_s, u"PDFに保存"_s, {QKeySequence::Save}, [this] { SavePdf(); });
    bar.addSeparator();
    first_ = AddAction(bar, u"first"_s, u"先頭"_s, {Qt::Key_Home}, [this] { TurnTo(0); });
    previous_ = AddAction(bar, u"previous"_s, u"前ページ"_s, {Qt::Key_PageUp}, [this] { TurnTo(view_->Page() - 1); });
    AddPageField(bar);
    next_ = AddAction(bar, u"next"_s, u"次ページ"_s, {Qt::Key_PageDown}, [this] { TurnTo(view_->Page() + 1); });
    last_ = AddAction(bar, u"last"_s, u"最後"_s, {Qt::Key_End}, [this] { TurnTo(report_->PageCount() - 1); });
    bar.addSeparator();
    AddAction(bar, u"smaller"_s, u"縮小"_s, {QKeySequence::ZoomOut}, [this] { ZoomBy(1 / kStep); });
    AddZoomField(bar);
    AddAction(bar, u"larger"_s, u"拡大"_s, {QKeySequence::ZoomIn, QKeySequence(u"Ctrl+;"_s)},
              [this] { ZoomBy(kStep); });
    bar.addSeparator();
    AddAction(bar, u"close"_s, u"閉じる"_s, {Qt::Key_Escape, QKeySequence::Close}, [this] { close(); });
}

void PreviewWindow::AddPageField(QToolBar& bar) {
    pageField_ = new QSpinBox;
    pageField_->setObjectName(u"pageField"_s);
    pageField_->setAccessibleName(u"ページ"_s);
    pageField_->setRange(1, qMax(1, report_->PageCount()));
    pageField_->setSuffix(u" / %1 ページ"_s.arg(report_->PageCount()));
    pageField_->setKeyboardTracking(false);
    pageField_->setAlignment(Qt::AlignRight);
    pageField_->setFocusPolicy(Qt::StrongFocus);
    connect(pageField_, &QSpinBox::valueChanged, this, [this](int page) { TurnTo(page - 1); });
    bar.addWidget(pageField_);
}

void PreviewWindow::AddZoomField(QToolBar& bar) {
    InstallAccessibleCombo();
    zoomField_ = new QComboBox;
    zoomField_->setObjectName(u"zoomField"_s);
    zoomField_->setAccessibleName(u"倍率"_s);
    zoomField_->addItems(kFits);
    for (const int percent : kPercents) zoomField_->addItem(u"%1%"_s.arg(percent));
    // A zoom factor reached in steps is not an entry of the list; it is shown as placeholder text.
    zoomField_->setPlaceholderText(u"100%"_s);
    QPalette palette = zoomField_->palette();
    palette.setColor(QPalette::PlaceholderText, palette.color(QPalette::ButtonText));
    zoomField_->setPalette(palette);
    zoomField_->setFocusPolicy(Qt::StrongFocus);
    connect(zoomField_, &QComboBox::activated, this, [this](int choice) { ChooseZoom(choice); });
    bar.addWidget(zoomField_);
}

void PreviewWindow::TurnTo(int page) {
    const int last = qMax(0, report_->PageCount() - 1);
    const int wanted = std::clamp(page, 0, last);
    view_->ShowPage(wanted);
    area_->verticalScrollBar()->setValue(0);
    pageField_->setValue(wanted + 1);
    first_->setEnabled(wanted > 0);
    previous_->setEnabled(wanted > 0);
    next_->setEnabled(wanted < last);
    last_->setEnabled(wanted < last);
}

void PreviewWindow::SetZoom(double zoom) { view_->SetZoom(std::clamp(zoom, kSmallest, kLargest)); }

void PreviewWindow::ZoomBy(double factor) {
    fit_ = Fit::None;
    SetZoom(view_->Zoom() * factor);
    const QString percent = u"%1%"_s.arg(qRound(view_->Zoom() * 100));
    zoomField_->setPlaceholderText(percent);
    zoomField_->setCurrentIndex(zoomField_->findText(percent));
}

void PreviewWindow::ChooseZoom(int choice) {
    const int fits = static_cast<int>(kFits.size());
    fit_ = choice == 0 ? Fit::Page : choice == 1 ? Fit::Width : Fit::None;
    if (choice >= fits) SetZoom(kPercents[choice - fits] / 100.0);
    ApplyFit();
}

void PreviewWindow::ApplyFit() {
    if (fit_ == Fit::None) return;
    QSize available = area_->maximumViewportSize();
    // Reserve the width of the vertical scroll bar, which appears if the page is taller than the window.
    if (fit_ == Fit::Width) available.rwidth() -= area_->verticalScrollBar()->sizeHint().width();
    SetZoom(view_->ZoomToFit(available, fit_ == Fit::Page));
}

void PreviewWindow::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    // Deferred until the layout has resized the scroll area.
    QMetaObject::invokeMethod(
        this, [this] { ApplyFit(); }, Qt::QueuedConnection);
}

void PreviewWindow::closeEvent(QCloseEvent* event) {
    if (!busy_) return QMainWindow::closeEvent(event);
    closing_ = true;
    event->ignore();
}

bool PreviewWindow::StopWanted() {
    if (!nextPoll_.hasExpired()) return closing_;
    ProcessRenderEvents();
    nextPoll_.setRemainingTime(kPollInterval);
    return closing_;
}

QString PreviewWindow::Run(const std::function<void()>& job) {
    const RenderWatch watch([this] { return StopWanted(); });
    nextPoll_.setRemainingTime(kPollInterval);
    try {
        job();
    } catch (const std::exception& error) {
        // Exceptions must not propagate through Qt's event loop.
        return platform::TextForPeople(error);
    }
    return {};
}

void PreviewWindow::RunJob(const std::function<void()>& job, const QString& done) {
    // Assistive technology can press buttons although input is dropped.
    if (busy_) return;
    busy_ = true;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const QString reason = Run(job);
    QApplication::restoreOverrideCursor();
    busy_ = false;
    if (closing_) {
        close();
    } else if (reason.isEmpty()) {
        if (!done.isEmpty()) statusBar()->showMessage(done, kMessageTime);
    } else if (!platform::TerminationRequested()) {
        platform::Services().dialogs->ShowMessage(reason);
    }
}

void PreviewWindow::Print() {
    RunJob([this] { PrintReport(*report_, name_, templateFile_); }, u"印刷に出しました。"_s);
    DropPendingInput();
}

void PreviewWindow::SavePdf() {
    platform::Dialogs& dialogs = *platform::Services().dialogs;
    std::optional<QString> file =
        dialogs.ShowSave({.Filter = u"PDF ファイル (*.pdf)|*.pdf"_s, .FilterIndex = 1, .FileName = name_ + u".pdf"_s});
    if (!file) return;
    if (QFileInfo(*file).suffix().isEmpty()) *file += u".pdf"_s;
    const QString question = u"%1 は既にあります。\n上書きしますか?"_s.arg(*file);
    if (QFileInfo::exists(*file) && !dialogs.Confirm(question)) return;
    RunJob([&] { WritePdf(*report_, *file); }, u"「%1」に保存しました。"_s.arg(*file));
    DropPendingInput();
}
