#pragma once

#include <QDeadlineTimer>
#include <QMainWindow>
#include <QString>
#include <functional>
#include <memory>

class FontNotice;
class PageView;
class PreparedReport;
class QAction;
class QComboBox;
class QLabel;
class QScrollArea;
class QSpinBox;
class QToolBar;

/// Preview of a report: pages, zoom, printing, saving as PDF.
class PreviewWindow : public QMainWindow {
  public:
    /// `name`: the report's; `templateFile`: path of the template file, for the output target.
    PreviewWindow(std::unique_ptr<PreparedReport> report, QString name, QString templateFile);
    ~PreviewWindow() override;

    /// Enlarges the window to the screen, also without a window manager.
    void FillScreen();

  protected:
    void resizeEvent(QResizeEvent* event) override;
    /// While a job runs, cancels it; the window closes when it has stopped.
    void closeEvent(QCloseEvent* event) override;

  private:
    enum class Fit { None, Page, Width };

    void MakeView();
    void MakeToolBar();
    QAction* AddAction(QToolBar& bar, const QString& name, const QString& caption, const QList<QKeySequence>& keys,
                       const std::function<void()>& job);
    void AddPageField(QToolBar& bar);
    void AddZoomField(QToolBar& bar);
    void TurnTo(int page);
    void ZoomBy(double factor);
    void SetZoom(double zoom);
    void ChooseZoom(int choice);
    void ApplyFit();
    void Print();
    void SavePdf();
    /// Runs a job that may throw, with a wait cursor. Then shows `done`, if not empty, in the status bar, or the reason
    /// of a failure in a message box. Meanwhile all input is dropped except the close box, which cancels the job.
    /// Ignored while another job runs.
    void RunJob(const std::function<void()>& job, const QString& done);

    /// Returns the reason of a failure; empty on success.
    QString Run(const std::function<void()>& job);
    /// True if the job is to be cancelled; processes render events now and then to find out.
    bool StopWanted();

    std::unique_ptr<PreparedReport> report_;
    QString name_, templateFile_;
    bool busy_ = false, closing_ = false;
    QDeadlineTimer nextPoll_;  ///< next poll for a request to cancel, while a job runs
    Fit fit_ = Fit::Page;
    PageView* view_ = nullptr;
    QScrollArea* area_ = nullptr;
    FontNotice* notice_ = nullptr;
    QSpinBox* pageField_ = nullptr;
    QComboBox* zoomField_ = nullptr;
    QAction *first_ = nullptr, *previous_ = nullptr, *next_ = nullptr, *last_ = nullptr;
};
