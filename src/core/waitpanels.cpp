#include "waitpanels.h"

#include <QLabel>
#include <QProgressBar>
#include <QTimer>
#include <QVBoxLayout>

namespace core {

namespace {
constexpr int ShownFor = 1000; // milliseconds

QTimer* closingTimer(QDialog* panel) {
    auto* timer = new QTimer(panel);
    timer->setSingleShot(true);
    timer->setInterval(ShownFor);
    QObject::connect(timer, &QTimer::timeout, panel, &QDialog::accept);
    return timer;
}
} // namespace

Form2::Form2(QWidget* parent)
    : QDialog(parent) {
    setObjectName(QStringLiteral("Form2"));
    setWindowTitle(QStringLiteral("Quillorne"));
    Label1 = new QLabel(QStringLiteral("Please wait. This process may take a couple of minutes "
                                       "depending on the size of database."),
                        this);
    Label1->setObjectName(QStringLiteral("Label1"));
    Label1->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Label1);
    setMinimumWidth(360);
    timer_ = closingTimer(this);
}

void Form2::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    timer_->start();
}

frmprogress2::frmprogress2(QWidget* parent)
    : QDialog(parent) {
    setObjectName(QStringLiteral("frmprogress2"));
    setWindowTitle(QStringLiteral("Calculating Report"));
    Label1 = new QLabel(QStringLiteral("Calculating Report"), this);
    Label1->setObjectName(QStringLiteral("Label1"));
    ProgressBar1 = new QProgressBar(this);
    ProgressBar1->setObjectName(QStringLiteral("ProgressBar1"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Label1);
    layout->addWidget(ProgressBar1);
    setMinimumWidth(320);
    timer_ = closingTimer(this);
}

void frmprogress2::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    timer_->start();
}

} // namespace core
