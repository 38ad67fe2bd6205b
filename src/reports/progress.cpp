#include "progress.h"

#include <QCoreApplication>
#include <QProgressDialog>

namespace reports {

ProgressPanel::ProgressPanel(const QString& caption, QWidget* parent)
    : dialog_(std::make_unique<QProgressDialog>(caption, QString(), 0, 1, parent)) {
    dialog_->setObjectName("frmprogress");
    dialog_->setWindowTitle(caption);
    dialog_->setWindowModality(Qt::WindowModal);
    dialog_->setMinimumDuration(400);
    dialog_->setAutoClose(false);
    dialog_->setAutoReset(false);
    dialog_->setValue(0);
}

ProgressPanel::~ProgressPanel() = default;

void ProgressPanel::set(int done, int total) {
    if (total < 1) total = 1;
    if (dialog_->maximum() != total) dialog_->setMaximum(total);
    dialog_->setValue(std::min(done, total));
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

} // namespace reports
