#include "screen/TabItem.h"

#include "screen/Form.h"

using namespace Qt::StringLiterals;

TabItem::TabItem(Form& form, QWidget& parent, QString name)
    : QWidget(&parent), Control(form, *this, u"SSTab"_s, std::move(name), -1), strip_(this) {
    strip_.setFocusPolicy(Qt::StrongFocus);
    strip_.setDrawBase(false);
    strip_.setExpanding(false);
    strip_.setAccessibleName(Name());
    connect(&strip_, &QTabBar::currentChanged, this, [this](int page) {
        ShowPage(page);
        if (!writing_ && Click) Form::RunEvent(Click);
    });
}

QWidget& TabItem::AddPage(const QString& caption) {
    auto* page = new QWidget(this);
    page->setGeometry(0, kStripHeight, width(), height() - kStripHeight);
    pages_.push_back(page);
    writing_ = true;
    strip_.addTab(caption);
    writing_ = false;
    ShowPage(strip_.currentIndex());
    return *page;
}

void TabItem::SetValue(int page) {
    if (page == Value()) return;
    writing_ = true;
    strip_.setCurrentIndex(page);
    writing_ = false;
    if (Click) Click();
}

void TabItem::ShowPage(int page) {
    for (int i = 0; i < static_cast<int>(pages_.size()); ++i) pages_[static_cast<size_t>(i)]->setVisible(i == page);
}

void TabItem::resizeEvent(QResizeEvent*) {
    strip_.setGeometry(0, 0, width(), kStripHeight);
    for (QWidget* page : pages_) page->setGeometry(0, kStripHeight, width(), height() - kStripHeight);
}
