#pragma once

#include <QTabBar>
#include <QWidget>
#include <vector>

#include "screen/Control.h"

/// The strip of captions. Qt's own turns pages by the wheel, which here belongs to the list.
class TabStrip : public QTabBar {
  public:
    using QTabBar::QTabBar;

  protected:
    void wheelEvent(QWheelEvent* event) override;
};

/// SSTab: TabItem(form, parent, name), then AddPage for each page. The strip has a fixed height, so that the pages can
/// be lined up with what stands beside the tab. Value is the page in front, counted from 0. Raises Click when another
/// page comes to the front, by whomever; PreviousTab then tells which one was there.
class TabItem : public QWidget, public Control {
  public:
    static constexpr int kStripHeight = 26;  // pixels

    TabItem(Form& form, QWidget& parent, QString name);
    /// The widget that the page's controls take as parent.
    QWidget& AddPage(const QString& caption);

    int Value() const override { return strip_->currentIndex(); }
    /// A page that is not there changes nothing.
    void SetValue(int page) override;
    int PreviousTab() const { return previousTab_; }
    QWidget& FocusWidget() const override { return *strip_; }

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void ShowPage(int page);

    TabStrip* strip_;  // a child widget
    std::vector<QWidget*> pages_;
    int shownTab_ = 0;
    int previousTab_ = 0;
};
