#pragma once

#include <QTabBar>
#include <QWidget>
#include <vector>

#include "screen/Control.h"

/// The strip of captions, without Qt's page change by the wheel, which scrolls the list here.
class TabStrip : public QTabBar {
  public:
    using QTabBar::QTabBar;

  protected:
    void wheelEvent(QWheelEvent* event) override;
};

/// SSTab: TabItem(form, parent, name), then AddPage for each page. The strip has a fixed height, so that pages can be
/// aligned with controls beside the tab. Value is the current page, from 0; -1 without pages. Emits Click when the page
/// changes, by the user or by the program.
class TabItem : public QWidget, public Control {
  public:
    static constexpr int kStripHeight = 26;  // pixels

    TabItem(Form& form, QWidget& parent, QString name);
    /// Appends a page. Returns the widget that the page's controls take as parent; the item owns it.
    QWidget& AddPage(const QString& caption);

    int Value() const override { return strip_->currentIndex(); }
    /// Ignored for a page that does not exist.
    void SetValue(int page) override;
    QWidget& FocusWidget() const override { return *strip_; }

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void ShowPage(int page);

    TabStrip* strip_;  // a child widget
    std::vector<QWidget*> pages_;
};
