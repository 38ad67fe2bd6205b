#include "frmabout.h"

#include "messagebox.h"
#include "modal.h"
#include "settings.h"

#include <QFile>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QSysInfo>
#include <QVBoxLayout>

QStringList systemFacts() {
    QStringList facts;
    const auto add = [&](const QString& name, const QString& value) {
        if (!value.trimmed().isEmpty()) facts << name + ": " + value.trimmed();
    };
    add("Operating system", QSysInfo::prettyProductName());
    add("Kernel", QSysInfo::kernelType() + ' ' + QSysInfo::kernelVersion());
    add("Processor architecture", QSysInfo::currentCpuArchitecture());
    add("Computer name", QSysInfo::machineHostName());
    add("Qt version", QString::fromLatin1(qVersion()));
    if (QScreen* screen = QGuiApplication::primaryScreen())
        add("Screen",
            QStringLiteral("%1 x %2").arg(screen->size().width()).arg(screen->size().height()));
    QFile meminfo("/proc/meminfo");
    if (meminfo.open(QIODevice::ReadOnly)) {
        const QString first = QString::fromLatin1(meminfo.readLine()).simplified();
        if (first.startsWith("MemTotal:")) add("Memory", first.mid(9));
    }
    return facts;
}

frmAbout::frmAbout(QWidget* parent)
    : QDialog(parent) {
    setObjectName("frmAbout");
    setWindowTitle("About Vantry Quillorne");
    const auto& settings = core::InstallSettings::instance();
    auto* title = new QLabel("<h2>Quillorne</h2>", this);
    title->setObjectName("lblTitle");
    lblVersion = new QLabel(
        QStringLiteral("Version %1  Revision %2").arg(settings.version(), settings.revision()),
        this);
    lblVersion->setObjectName("lblVersion");
    auto* description = new QLabel("Personnel, helpdesk, assets and office administration", this);
    cmdOK = new QPushButton("OK", this);
    cmdOK->setObjectName("cmdOK");
    cmdOK->setDefault(true);
    cmdSysInfo = new QPushButton("&System Info...", this);
    cmdSysInfo->setObjectName("cmdSysInfo");

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(title);
    layout->addWidget(lblVersion);
    layout->addWidget(description);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdSysInfo);
    layout->addLayout(buttons);
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdSysInfo, &QPushButton::clicked, this, &frmAbout::showSystemInfo);
}

void frmAbout::showSystemInfo() {
    const QStringList facts = systemFacts();
    if (facts.isEmpty()) {
        core::msgbox("System Information Is Unavailable At This Time");
        return;
    }
    QDialog info(this);
    info.setObjectName("frmSystemInfo");
    info.setWindowTitle("System Information");
    auto* text = new QPlainTextEdit(facts.join('\n'), &info);
    text->setObjectName("txtFacts");
    text->setReadOnly(true);
    auto* ok = new QPushButton("OK", &info);
    auto* layout = new QVBoxLayout(&info);
    layout->addWidget(text);
    layout->addWidget(ok, 0, Qt::AlignRight);
    connect(ok, &QPushButton::clicked, &info, &QDialog::accept);
    info.resize(460, 260);
    core::showModal(info);
}
