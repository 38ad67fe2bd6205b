#include "frmhelp.h"

#include "screenbase.h"

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
    // Links to other pages of the guide stay in here; anything else goes to the desktop.
    browser->setOpenExternalLinks(true);
    browser->setSource(QUrl("qrc:/help/index.html"));
    auto* back = new QPushButton("Back", this);
    back->setObjectName("cmdBack");
    back->setEnabled(false);
    auto* home = new QPushButton("Contents", this);
    home->setObjectName("cmdContents");
    auto* close = new QPushButton("Close", this);
    close->setObjectName("cmdClose");
    core::setScreenButtons(this, nullptr, close);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(back);
    buttons->addWidget(home);
    buttons->addStretch();
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(buttons);
    layout->addWidget(browser);
    connect(browser, &QTextBrowser::backwardAvailable, back, &QPushButton::setEnabled);
    connect(back, &QPushButton::clicked, browser, &QTextBrowser::backward);
    connect(home, &QPushButton::clicked, browser, &QTextBrowser::home);
    connect(close, &QPushButton::clicked, this, &QWidget::close);
    resize(720, 560);
}
