#pragma once

#include <QDeadlineTimer>
#include <QMainWindow>
#include <QString>
#include <functional>
#include <memory>

class PageView;
class PreparedReport;
class QAction;
class QComboBox;
class QLabel;
class QScrollArea;
class QSpinBox;
class QToolBar;

/// A report on the screen: pages to turn, zoom, print and save as PDF.
class PreviewWindow : public QMainWindow {
  public:
    PreviewWindow(std::unique_ptr<PreparedReport> report, QString name, QString formsFile);
    ~PreviewWindow() override;

    /// Shows it as large as the screen, also where no window manager runs.
    void FillScreen();

  protected:
    void resizeEvent(QResizeEvent* event) override;
    /// Ends the work of this window, if there is any, before the window.
    void closeEvent(QCloseEvent* event) override;

  private:
    enum class Fit { None, Page, Width };

    void MakeView();
    void MakeToolBar();
    QAction* AddAction(QToolBar& bar, const QString& name, const QString& caption, const QList<QKeySequence>& keys,
                       const std::function<void()>& work);
    void AddPageField(QToolBar& bar);
    void AddZoomField(QToolBar& bar);
    void TurnTo(int page);
    void ZoomBy(double factor);
    void SetZoom(double zoom);
    void ChooseZoom(int choice);
    void ApplyFit();
    void Print();
    void SavePdf();
    /// Runs work that may fail with ReportFailure: waiting cursor, then `done` in the status line or the reason in a
    /// box. Meanwhile input is dropped but for the close box, which ends the work.
    void Work(const std::function<void()>& work, const QString& done);

    /// The reason of a failure; empty without one.
    QString Run(const std::function<void()>& work);
    bool StopWanted();

    std::unique_ptr<PreparedReport> report_;
    QString name_, formsFile_;
    bool working_ = false, closing_ = false;
    QDeadlineTimer look_;  ///< until the next look at what the user wants while work runs
    Fit fit_ = Fit::Page;
    PageView* view_ = nullptr;
    QScrollArea* area_ = nullptr;
    QSpinBox* pageField_ = nullptr;
    QComboBox* zoomField_ = nullptr;
    QAction *first_ = nullptr, *previous_ = nullptr, *next_ = nullptr, *last_ = nullptr;
};
