#include "screen/TabItem.h"

#include <QSignalBlocker>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

void TabStrip::wheelEvent(QWheelEvent* event) { event->ignore(); }

TabItem::TabItem(Form& form, QWidget& parent, QString name)
    : QWidget(&parent), Control(form, *this, u"SSTab"_s, std::move(name), -1), strip_(new TabStrip(this)) {
    SetTabStop(true);
    strip_->setFocusPolicy(Qt::StrongFocus);
    strip_->setDrawBase(false);
    strip_->setExpanding(false);
    strip_->setAccessibleName(Name());
    connect(strip_, &QTabBar::currentChanged, this, [this](int page) {
        ShowPage(page);
        EmitByUser(Click);
    });
}

QWidget& TabItem::AddPage(const QString& caption) {
    const QSignalBlocker quiet(strip_);
    auto* page = new QWidget(this);
    page->setGeometry(0, kStripHeight, width(), height() - kStripHeight);
    page->setVisible(pages_.empty());
    pages_.push_back(page);
    strip_->addTab(QString(caption).replace(u'&', u"&&"_s));
    return *page;
}

void TabItem::SetValue(int page) {
    if (page == Value() || page < 0 || page >= strip_->count()) return;
    {
        const QSignalBlocker quiet(strip_);
        strip_->setCurrentIndex(page);
    }
    ShowPage(page);
    if (Click) Click();
}

void TabItem::ShowPage(int page) {
    for (int i = 0; i < static_cast<int>(pages_.size()); ++i) pages_[static_cast<size_t>(i)]->setVisible(i == page);
}

void TabItem::resizeEvent(QResizeEvent*) {
    strip_->setGeometry(0, 0, width(), kStripHeight);
    for (QWidget* page : pages_) page->setGeometry(0, kStripHeight, width(), height() - kStripHeight);
}
