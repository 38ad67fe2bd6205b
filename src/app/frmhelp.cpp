#include "frmhelp.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QTextBrowser>
#include <QVBoxLayout>

// The guide lives in this static library's resources; the linker keeps them only when code
// refers to them.
static void initHelpResources() {
    Q_INIT_RESOURCE(help);
}

frmHelp::frmHelp(QWidget* parent)
    : QWidget(parent, Qt::Window) {
    initHelpResources();
    setObjectName("frmHelp");
    setWindowTitle("Quillorne Help");
    browser = new QTextBrowser(this);
    browser->setObjectName("browser");
    browser->setOpenExternalLinks(true);
    browser->setSource(QUrl("qrc:/help/index.html"));
    auto* back = new QPushButton("Back", this);
    auto* home = new QPushButton("Contents", this);
    auto* close = new QPushButton("Close", this);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(back);
    buttons->addWidget(home);
    buttons->addStretch();
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(buttons);
    layout->addWidget(browser);
    connect(back, &QPushButton::clicked, browser, &QTextBrowser::backward);
    connect(home, &QPushButton::clicked, browser, &QTextBrowser::home);
    connect(close, &QPushButton::clicked, this, &QWidget::close);
    resize(720, 560);
}
