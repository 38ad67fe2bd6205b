#include "frmbookingreport.h"

#include "combos.h"
#include "datebox.h"
#include "export.h"
#include "failure.h"
#include "messagebox.h"
#include "progress.h"
#include "recordlist.h"
#include "screenbase.h"
#include "session.h"
#include "widgetkit.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QSqlRecord>
#include <QVBoxLayout>

using reports::BookingKind;
using reports::Criterion;

namespace {

constexpr int pixels(int twips) {
    return twips / 15;
}

} // namespace

BookingReportScreen::BookingReportScreen(BookingKind kind, QWidget* parent)
    : QWidget(parent)
    , kind_(kind) {
    txtFrom = new DateBox("txtFrom", this);
    txtTo = new DateBox("txtTo", this);
    cboCriteria = core::autoCompleteCombo(this, "cboCriteria");
    cboCriteria->addItems(reports::criterionItems());
    cboCriteria->setCurrentIndex(-1);
    cboChoice = core::autoCompleteCombo(this, "cboChoice");
    cboChoice->setMinimumContentsLength(30);
    chkLeavers = new QCheckBox("Include Leavers", this);
    chkLeavers->setObjectName("chkLeavers");
    cmdRun = core::makeButton(this, "Run", "cmdRun", true);
    cmdCancel = core::makeButton(this, "Cancel", "cmdCancel");
    cmdExport = core::makeButton(this, "Export to Excel", "cmdExport");
    cmdExport->setEnabled(false);
    ListView1 = new RecordList(this);
    ListView1->setObjectName("ListView1");
    QStringList captions{"Emp ID", "Name", "Date From", "Date To", "Days"};
    QList<int> widths{pixels(800), pixels(2000), pixels(1440), pixels(1440), pixels(800)};
    if (kind == BookingKind::Absence) {
        captions << "Reason";
        widths << pixels(1800);
    }
    ListView1->setColumns(captions, widths);
    ListView1->setMinimumSize(560, 300);

    auto* range = new QGroupBox("Date Range", this);
    auto* rangeLayout = new QFormLayout(range);
    rangeLayout->addRow("Date From", txtFrom);
    rangeLayout->addRow("Date To", txtTo);
    auto* selection = new QGroupBox("Selection Crireia", this);
    auto* selectionLayout = new QVBoxLayout(selection);
    selectionLayout->addWidget(cboCriteria);
    selectionLayout->addWidget(cboChoice);
    selectionLayout->addWidget(chkLeavers);
    auto* top = new QHBoxLayout;
    top->addWidget(range);
    top->addWidget(selection, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(ListView1, 1);
    layout->addLayout(core::buttonRow({cmdRun, cmdExport, cmdCancel}));

    connect(cboCriteria, &QComboBox::currentIndexChanged, this,
            &BookingReportScreen::criterionChanged);
    connect(chkLeavers, &QCheckBox::clicked, this, [this] {
        if (reports::criterionOf(cboCriteria->currentText()) == Criterion::ByEmployee)
            fillEmployees();
    });
    connect(cmdRun, &QPushButton::clicked, this, &BookingReportScreen::run);
    connect(cmdExport, &QPushButton::clicked, this, &BookingReportScreen::exportToExcel);
    connect(cmdCancel, &QPushButton::clicked, this, &QWidget::close);
    core::setScreenButtons(this, cmdRun, cmdCancel);
    criterionChanged();
}

void BookingReportScreen::fillEmployees() {
    cboChoice->clear();
    core::guarded(
        windowTitle(),
        [&] {
            const QString sql = QStringLiteral(
                "SELECT Person_ID, firstnames, surname FROM Person WHERE blndeleted <> 1%1 "
                "ORDER BY surname, firstnames, Person_ID");
            for (const QSqlRecord& r :
                 core::db().rows(sql.arg(chkLeavers->isChecked() ? "" : " AND HasLeft = 0"))) {
                const qint64 id = core::Db::toId(r.value(0));
                core::addComboItem(cboChoice,
                                   QStringLiteral("%1 - %2, %3")
                                       .arg(id)
                                       .arg(core::Db::text(r.value(2)), core::Db::text(r.value(1))),
                                   id);
            }
        },
        this);
    cboChoice->setCurrentIndex(-1);
}

void BookingReportScreen::criterionChanged() {
    cboChoice->clear();
    const Criterion criterion = reports::criterionOf(cboCriteria->currentText());
    cboChoice->setEnabled(criterion != Criterion::AllEmployees);
    const auto fill = [&](const QString& sql) {
        core::guarded(
            windowTitle(),
            [&] {
                for (const QSqlRecord& r : core::db().rows(sql))
                    core::addComboItem(cboChoice, core::Db::text(r.value(1)),
                                       core::Db::toId(r.value(0)));
            },
            this);
        cboChoice->setCurrentIndex(-1);
    };
    switch (criterion) {
    case Criterion::ByEmployee:
        fillEmployees();
        break;
    case Criterion::ByDepartment:
        fill("SELECT Department_ID, Department FROM Department ORDER BY Department");
        break;
    case Criterion::ByLocation:
        fill("SELECT Location_ID, Location FROM Location ORDER BY Location");
        break;
    default:
        break;
    }
}

void BookingReportScreen::run() {
    const Criterion criterion = reports::criterionOf(cboCriteria->currentText());
    const qint64 choice = core::comboId(cboChoice);
    const bool hasChoice = choice != core::NoComboId;
    QString stop = reports::rangeCheck(txtFrom->text(), txtTo->text());
    if (!stop.isEmpty()) {
        core::msgbox(stop, {}, core::MsgButtons::Ok, core::MsgIcon::None, this);
        return;
    }
    ListView1->clearRecords();
    rows_.clear();
    stop = reports::selectionCheck(criterion, hasChoice);
    if (!stop.isEmpty()) {
        core::msgbox(stop, {}, core::MsgButtons::Ok, core::MsgIcon::None, this);
        return;
    }
    const bool read = core::guarded(
        windowTitle(),
        [&] {
            rows_ = reports::bookingReport(core::db(), kind_, criterion, choice,
                                           chkLeavers->isChecked(), txtFrom->date(), txtTo->date());
        },
        this);
    if (!read) {
        cmdExport->setEnabled(false);
        return;
    }
    // A year of every employee is a hundred thousand rows: the bar shows while they go in.
    reports::ProgressPanel progress("Running Report", this);
    const int total = int(rows_.size());
    ListView1->beginFill();
    for (int i = 0; i < total; ++i) {
        if (i % 5000 == 0) progress.set(i, total);
        ListView1->addRecord(rows_[std::size_t(i)].id,
                             reports::bookingCells(rows_[std::size_t(i)], kind_));
    }
    ListView1->endFill();
    if (rows_.empty()) {
        core::msgbox("There are no matching records", {}, core::MsgButtons::Ok, core::MsgIcon::None,
                     this);
        cmdExport->setEnabled(false);
    } else {
        cmdExport->setEnabled(true);
    }
}

void BookingReportScreen::exportToExcel() {
    if (rows_.empty()) return;
    const bool absence = kind_ == BookingKind::Absence;
    reports::exportSpreadsheet(
        reports::bookingSheet(rows_, kind_), absence ? "absence.xltx" : "holiday.xltx",
        QStringLiteral("%1 %2 to %3")
            .arg(absence ? "Absence Report" : "Holiday Report",
                 txtFrom->date().toString(Qt::ISODate), txtTo->date().toString(Qt::ISODate)),
        this);
}

frmHolidayReport::frmHolidayReport(QWidget* parent)
    : BookingReportScreen(BookingKind::Holiday, parent) {
    setObjectName("frmHolidayReport");
    setWindowTitle("Holiday Report");
}

frmAbsenceReport::frmAbsenceReport(QWidget* parent)
    : BookingReportScreen(BookingKind::Absence, parent) {
    setObjectName("frmAbsenceReport");
    setWindowTitle("Absence Report");
}
