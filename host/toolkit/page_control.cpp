// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/page_control.h"

#include <QAbstractButton>
#include <QStackedWidget>
#include <QStyleOptionTab>
#include <QStyleOptionTabWidgetFrame>
#include <QStylePainter>
#include <QVBoxLayout>

#include <algorithm>

namespace owl {

namespace {

/// Looks like a tab of the style and acts as a radio button.
class Tab final : public QAbstractButton {
public:
    Tab(const QString& caption, QWidget* parent) : QAbstractButton(parent) {
        setText(caption);
        setCheckable(true);
        setAutoExclusive(true);
        setFocusPolicy(Qt::TabFocus);
    }

    QSize sizeHint() const override {
        const QStyleOptionTab option = Option();
        const QSize space(style()->pixelMetric(QStyle::PM_TabBarTabHSpace, &option, this),
                          style()->pixelMetric(QStyle::PM_TabBarTabVSpace, &option, this));
        const QSize caption = fontMetrics().size(Qt::TextShowMnemonic, text());
        return style()->sizeFromContents(QStyle::CT_TabBarTab, &option, caption + space, this);
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QStylePainter(this).drawControl(QStyle::CE_TabBarTab, Option());
    }

private:
    QStyleOptionTab Option() const {
        QStyleOptionTab option;
        option.initFrom(this);
        option.text = text();
        option.shape = QTabBar::RoundedNorth;
        option.position = QStyleOptionTab::OnlyOneTab;
        option.state.setFlag(QStyle::State_Selected, isChecked());
        return option;
    }
};

} // namespace

std::vector<QRect> TabLines(std::span<const QSize> tabs, int width) {
    int height = 0;
    for (const QSize& tab : tabs) {
        height = std::max(height, tab.height());
    }
    std::vector<QRect> places;
    QPoint at;
    for (const QSize& tab : tabs) {
        if (at.x() > 0 && at.x() + tab.width() > width) {
            at = {0, at.y() + height};
        }
        places.emplace_back(at, QSize(std::min(tab.width(), width), height));
        at.rx() += tab.width();
    }
    return places;
}

TTabSheet::TTabSheet(QWidget* parent) : QWidget(parent) {
    (new QVBoxLayout(this))->setContentsMargins(0, 0, 0, 0);
}

void TTabSheet::Take(QWidget& content) {
    layout()->addWidget(&content);
    content.show();
}

/// The tabs, as high as their lines need.
class TPageControl::Tabs final : public QWidget {
public:
    explicit Tabs(QWidget* parent) : QWidget(parent) {
        QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
        policy.setHeightForWidth(true);
        setSizePolicy(policy);
    }

    Tab& Add(const QString& caption) {
        auto* tab = new Tab(caption, this);
        tabs_.push_back(tab);
        tab->show();
        Arrange();
        return *tab;
    }
    void Remove(int index) {
        delete tabs_[static_cast<std::size_t>(index)];
        tabs_.erase(tabs_.begin() + index);
        Arrange();
    }
    void Check(int index) {
        if (index >= 0) {
            tabs_[static_cast<std::size_t>(index)]->setChecked(true);
        }
        parentWidget()->update(); // the frame joins the tab
    }
    QRect Checked() const {
        const auto tab = std::ranges::find_if(tabs_, &Tab::isChecked);
        return tab != tabs_.end() ? (*tab)->geometry() : QRect();
    }
    int IndexOf(const Tab& tab) const {
        return static_cast<int>(std::ranges::find(tabs_, &tab) - tabs_.begin());
    }

    int heightForWidth(int width) const override {
        const std::vector<QRect> places = TabLines(Sizes(), width);
        return places.empty() ? 0 : places.back().bottom() + 1;
    }
    QSize sizeHint() const override {
        QSize size;
        for (const QSize& tab : Sizes()) {
            size = {size.width() + tab.width(), std::max(size.height(), tab.height())};
        }
        return size;
    }
    QSize minimumSizeHint() const override { return {}; }

protected:
    void resizeEvent(QResizeEvent* /*event*/) override { Arrange(); }
    void changeEvent(QEvent* event) override {
        QWidget::changeEvent(event);
        Arrange();
    }

private:
    std::vector<QSize> Sizes() const {
        std::vector<QSize> sizes;
        for (const Tab* tab : tabs_) {
            sizes.push_back(tab->sizeHint());
        }
        return sizes;
    }
    void Arrange() {
        const std::vector<QRect> places = TabLines(Sizes(), width());
        for (std::size_t i = 0; i < places.size(); ++i) {
            tabs_[i]->setGeometry(places[i]);
        }
        updateGeometry();
    }

    std::vector<Tab*> tabs_; ///< children
};

TPageControl::TPageControl(QWidget* parent)
    : QWidget(parent), tabs_(new Tabs(this)), pages_(new QStackedWidget(this)) {
    auto* rows = new QVBoxLayout(this);
    rows->setSpacing(0);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addWidget(tabs_);
    rows->addWidget(pages_, 1);
    connect(pages_, &QStackedWidget::widgetRemoved, this, [this](int page) {
        tabs_->Remove(page);
        tabs_->Check(pages_->currentIndex());
    });
    connect(pages_, &QStackedWidget::currentChanged, this, [this](int page) { tabs_->Check(page); });
}

TTabSheet& TPageControl::AddPage(const QString& caption) {
    auto* page = new TTabSheet(nullptr);
    const Tab& tab = tabs_->Add(caption);
    connect(&tab, &QAbstractButton::toggled, this, [this, &tab](bool checked) {
        if (checked) {
            pages_->setCurrentIndex(tabs_->IndexOf(tab));
        }
    });
    pages_->addWidget(page);
    return *page;
}

int TPageControl::GetPageCount() const {
    return pages_->count();
}

void TPageControl::SetActivePage(int index) {
    pages_->setCurrentIndex(index);
}

void TPageControl::paintEvent(QPaintEvent* /*event*/) {
    const int overlap = style()->pixelMetric(QStyle::PM_TabBarBaseOverlap, nullptr, this);
    QStyleOptionTabWidgetFrame option;
    option.initFrom(this);
    option.rect = rect().adjusted(0, tabs_->height() - overlap, 0, 0);
    option.shape = QTabBar::RoundedNorth;
    option.selectedTabRect = tabs_->Checked();
    QStylePainter(this).drawPrimitive(QStyle::PE_FrameTabWidget, option);
}

} // namespace owl
