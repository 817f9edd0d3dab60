// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/main_window.h"

#include "host/review/app/main_window/host_text.h"
#include "host/review/app/main_window/notice_strip.h"
#include "host/review/app/main_window/view_area.h"

#include <QVBoxLayout>

#include <utility>

namespace orvanta::review {

MainWindow::MainWindow(Around around)
    : around_(std::move(around)), rows_(new QVBoxLayout(this)), problem_(new NoticeStrip(this)),
      repairs_(new NoticeStrip(this)), offer_(new NoticeStrip(this)), views_(new ViewArea(this)) {
    rows_->setContentsMargins(0, 0, 0, 0);
    rows_->setSpacing(0);
    rows_->addWidget(problem_);
    rows_->addWidget(repairs_);
    rows_->addWidget(views_, 1);
    rows_->addWidget(offer_);
}

MainWindow::~MainWindow() = default;

void MainWindow::SetWelcome(QWidget& page) {
    welcome_ = &page;
    rows_->addWidget(welcome_, 1);
}

void MainWindow::ShowWelcome(bool show) {
    views_->setVisible(!show);
    if (welcome_ != nullptr) {
        welcome_->setVisible(show);
    }
}

std::string MainWindow::GetErrorStr() const {
    return HostText("error", "Error");
}

void MainWindow::SetMessageText(const std::string& text) {
    around_.showMessage(text);
}

void MainWindow::SetActiveChild(TheChild* child) {
    GlobalWindow::SetActiveChild(child);
    around_.showChild(child);
}

void MainWindow::PointAtTime(const XTime& time) {
    around_.goTo(time);
}

void MainWindow::PointAtChannel(const std::string& name) {
    around_.goToChannel(name);
}

} // namespace orvanta::review
