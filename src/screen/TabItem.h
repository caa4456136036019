#pragma once

#include <QTabBar>
#include <QWidget>

#include <vector>

#include "screen/Control.h"

/// SSTab: TabItem(form, parent, name), then AddPage for each page. The strip has a fixed height, so that the pages can
/// be lined up with what stands beside the tab. Value is the page's number.
class TabItem : public QWidget, public Control {
  public:
    static constexpr int kStripHeight = 26;  // pixels

    TabItem(Form& form, QWidget& parent, QString name);
    QWidget& AddPage(const QString& caption);

    int Value() const override { return strip_.currentIndex(); }
    void SetValue(int page) override;
    QWidget& FocusWidget() const override { return const_cast<QTabBar&>(strip_); }

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void ShowPage(int page);

    QTabBar strip_;
    std::vector<QWidget*> pages_;
    bool writing_ = false;
};
