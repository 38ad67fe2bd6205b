#include "frmregional.h"

#include "regional.h"
#include "screenbase.h"
#include "widgetkit.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace core {

frmRegional::frmRegional(QWidget* parent)
    : QDialog(parent) {
    setObjectName("frmRegional");
    setWindowTitle("Select Country Settings");
    setWindowFlags(windowFlags() & ~Qt::WindowCloseButtonHint);

    auto* label = new QLabel("Select Country", this);
    Combo1 = new QComboBox(this);
    Combo1->setObjectName("Combo1");
    Combo1->setEditable(true);
    Combo1->addItems({regional::US, regional::UK});
    Combo1->setCurrentIndex(-1);
    auto* note = new QLabel(
        "You can change this setting at any time by going into the options menu item.", this);
    note->setWordWrap(true);
    cmdOK = core::makeButton(this, "OK", "cmdOK");
    core::setScreenButtons(this, cmdOK, nullptr);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(Combo1);
    layout->addWidget(note);
    layout->addWidget(cmdOK, 0, Qt::AlignRight);
    connect(cmdOK, &QPushButton::clicked, this, &frmRegional::ok);
}

QString frmRegional::choice() const {
    return Combo1->currentText().trimmed();
}

void frmRegional::ok() {
    const QString c = choice();
    if (c == regional::US || c == regional::UK) accept();
}

void frmRegional::closeEvent(QCloseEvent* event) {
    if (result() != Accepted) event->ignore();
}

frmSplash::frmSplash(QWidget* parent)
    : QDialog(parent, Qt::SplashScreen | Qt::FramelessWindowHint) {
    setObjectName("frmSplash");
    setFixedSize(480, 260);
}

void frmSplash::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    QTimer::singleShot(4000, this, &QDialog::accept);
}

void frmSplash::keyPressEvent(QKeyEvent*) {
    accept();
}

void frmSplash::paintEvent(QPaintEvent*) {
    QPainter p(this);
    QLinearGradient g(0, 0, 0, height());
    g.setColorAt(0, QColor(32, 64, 112));
    g.setColorAt(1, QColor(12, 28, 56));
    p.fillRect(rect(), g);
    p.setPen(Qt::white);
    QFont f = font();
    f.setPointSize(28);
    f.setBold(true);
    p.setFont(f);
    p.drawText(rect().adjusted(0, -30, 0, -30), Qt::AlignCenter, "Quillorne");
    f.setPointSize(11);
    f.setBold(false);
    p.setFont(f);
    p.drawText(rect().adjusted(0, 50, 0, 50), Qt::AlignCenter,
               "Personnel, helpdesk, assets and office administration");
}

} // namespace core
