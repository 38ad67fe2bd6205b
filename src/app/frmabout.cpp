#include "frmabout.h"

#include "messagebox.h"
#include "modal.h"
#include "screenbase.h"
#include "settings.h"
#include "widgetkit.h"

#include <QFile>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QSysInfo>
#include <QVBoxLayout>

namespace {

// The installed memory from /proc/meminfo ("MemTotal:  16318240 kB"); empty where there is none.
QString installedMemory() {
    QFile meminfo("/proc/meminfo");
    if (!meminfo.open(QIODevice::ReadOnly)) return {};
    while (!meminfo.atEnd()) {
        const QStringList fields = QString::fromLatin1(meminfo.readLine()).simplified().split(' ');
        if (fields.size() < 2 || fields[0] != "MemTotal:") continue;
        bool ok = false;
        const qint64 kib = fields[1].toLongLong(&ok);
        if (!ok || kib <= 0) return {};
        return QLocale::system().formattedDataSize(kib * 1024, 1,
                                                   QLocale::DataSizeTraditionalFormat);
    }
    return {};
}

} // namespace

QStringList systemFacts() {
    QStringList facts;
    const auto add = [&](const QString& name, const QString& value) {
        if (!value.trimmed().isEmpty()) facts << name + ": " + value.trimmed();
    };
    add("Operating system", QSysInfo::prettyProductName());
    add("Kernel", QSysInfo::kernelType() + ' ' + QSysInfo::kernelVersion());
    add("Processor architecture", QSysInfo::currentCpuArchitecture());
    add("Computer name", QSysInfo::machineHostName());
    add("Memory", installedMemory());
    if (QScreen* screen = QGuiApplication::primaryScreen())
        add("Screen",
            QStringLiteral("%1 x %2").arg(screen->size().width()).arg(screen->size().height()));
    add("Qt version", QString::fromLatin1(qVersion()));
    return facts;
}

void showSystemFacts(const QStringList& facts, QWidget* parent) {
    if (facts.isEmpty()) {
        core::msgbox("System Information Is Unavailable At This Time", {}, core::MsgButtons::Ok,
                     core::MsgIcon::None, parent);
        return;
    }
    QDialog info(parent);
    info.setObjectName("frmSystemInfo");
    info.setWindowTitle("System Information");
    auto* text = new QPlainTextEdit(facts.join('\n'), &info);
    text->setObjectName("txtFacts");
    text->setReadOnly(true);
    auto* ok = new QPushButton("OK", &info);
    ok->setObjectName("cmdOK");
    ok->setDefault(true);
    auto* layout = new QVBoxLayout(&info);
    layout->addWidget(text);
    layout->addWidget(ok, 0, Qt::AlignRight);
    QObject::connect(ok, &QPushButton::clicked, &info, &QDialog::accept);
    info.resize(460, 260);
    core::showModal(info);
}

frmAbout::frmAbout(QWidget* parent)
    : QDialog(parent) {
    setObjectName("frmAbout");
    setWindowTitle("About Vantry Quillorne");
    const auto& settings = core::InstallSettings::instance();
    lblTitle = new QLabel("<h2>Quillorne</h2>", this);
    lblTitle->setObjectName("lblTitle");
    lblVersion = new QLabel("Version " + settings.version(), this);
    lblVersion->setObjectName("lblVersion");
    lblRevision = new QLabel("Revision " + settings.revision(), this);
    lblRevision->setObjectName("lblRevision");
    auto* description =
        new QLabel("Personnel files, helpdesk, assets, suppliers, training and petty cash", this);
    description->setObjectName("lblDescription");
    cmdOK = core::makeButton(this, "OK", "cmdOK", true);
    cmdSysInfo = core::makeButton(this, "&System Info...", "cmdSysInfo");
    core::setScreenButtons(this, cmdOK, cmdOK);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblTitle);
    layout->addWidget(lblVersion);
    layout->addWidget(lblRevision);
    layout->addWidget(description);
    auto* buttons = core::buttonRow({cmdOK, cmdSysInfo});
    layout->addLayout(buttons);
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdSysInfo, &QPushButton::clicked, this, &frmAbout::showSystemInfo);
}

void frmAbout::showSystemInfo() {
    showSystemFacts(systemFacts(), this);
}
