#include "frmsickness.h"

#include "attendance_model.h"
#include "export.h"
#include "failure.h"
#include "openemployee.h"
#include "progress.h"
#include "screenbase.h"
#include "session.h"
#include "widgetkit.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QShowEvent>
#include <QStyle>
#include <QTableView>
#include <QVBoxLayout>

namespace {

// Twips as pixels at the usual 15 twips a pixel.
constexpr int pixels(int twips) {
    return twips / 15;
}

// The fixed legend: three rows of code and meaning.
QGridLayout* legend(QWidget* parent) {
    const char* entries[3][3][2] = {
        {{"W", "Weekend"}, {"M", "Maternity Leave"}, {"S", "Sickness"}},
        {{"D", "Doctors/Dentist"}, {"P", "Parental leave"}, {"U", "Unpaid leave"}},
        {{"H", "Holiday"}, {"R", "Paternity Leave"}, {"X", "In Work"}}};
    auto* grid = new QGridLayout;
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c) {
            auto* code = new QLabel(entries[r][c][0], parent);
            code->setStyleSheet(QStringLiteral("font-weight: bold;%1")
                                    .arg(r == 0 && c == 0 ? " color: #ff0000;" : ""));
            grid->addWidget(code, r, c * 2);
            grid->addWidget(new QLabel(entries[r][c][1], parent), r, c * 2 + 1);
        }
    grid->setColumnStretch(6, 1);
    return grid;
}

} // namespace

frmsickness::frmsickness(QWidget* parent)
    : QWidget(parent) {
    setObjectName("frmsickness");
    setWindowTitle("Attendance/Sickness report");
    lblMonth = new QLabel(this);
    lblMonth->setObjectName("lblMonth");
    lblMonth->setStyleSheet("font-weight: bold;");
    lblMonth->setMinimumWidth(160);
    lblMonth->setAlignment(Qt::AlignCenter);
    cmdPrevious = core::makeButton(this, QString(), "cmdPrevious");
    cmdPrevious->setIcon(style()->standardIcon(QStyle::SP_ArrowLeft));
    cmdPrevious->setToolTip("Previous month");
    cmdNext = core::makeButton(this, QString(), "cmdNext");
    cmdNext->setIcon(style()->standardIcon(QStyle::SP_ArrowRight));
    cmdNext->setToolTip("Next month");
    chkLeavers = new QCheckBox("Include Leavers", this);
    chkLeavers->setObjectName("chkLeavers");
    cmdGo = core::makeButton(this, "GO", "cmdGo", true);
    cmdExport = core::makeButton(this, "Export to Excel", "cmdExport");
    cmdExport->setEnabled(false);
    cmdExit = core::makeButton(this, "Exit", "cmdExit");

    model_ = new AttendanceModel(this);
    ListView1 = new QTableView(this);
    ListView1->setObjectName("ListView1");
    ListView1->setModel(model_);
    ListView1->setSelectionBehavior(QAbstractItemView::SelectRows);
    ListView1->setSelectionMode(QAbstractItemView::SingleSelection);
    ListView1->setEditTriggers(QAbstractItemView::NoEditTriggers);
    ListView1->verticalHeader()->hide();
    ListView1->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 4);
    ListView1->setWordWrap(false);
    ListView1->horizontalHeader()->setSectionsClickable(true);
    ListView1->setColumnWidth(0, pixels(2000));
    for (int c = 1; c < 32; ++c)
        ListView1->setColumnWidth(c, pixels(400));
    ListView1->setMinimumHeight(320);

    auto* top = new QHBoxLayout;
    top->addWidget(cmdPrevious);
    top->addWidget(lblMonth);
    top->addWidget(cmdNext);
    top->addSpacing(20);
    top->addWidget(chkLeavers);
    top->addStretch(1);
    top->addWidget(cmdGo);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(ListView1, 1);
    layout->addLayout(legend(this));
    layout->addLayout(core::buttonRow({cmdExport, cmdExit}));

    connect(cmdPrevious, &QPushButton::clicked, this, &frmsickness::previousMonth);
    connect(cmdNext, &QPushButton::clicked, this, &frmsickness::nextMonth);
    connect(chkLeavers, &QCheckBox::clicked, this, &frmsickness::leaversChanged);
    connect(cmdGo, &QPushButton::clicked, this, &frmsickness::go);
    connect(cmdExport, &QPushButton::clicked, this, &frmsickness::exportToExcel);
    connect(cmdExit, &QPushButton::clicked, this, &QWidget::close);
    connect(ListView1, &QTableView::doubleClicked, this, &frmsickness::openSelected);
    connect(ListView1->horizontalHeader(), &QHeaderView::sectionClicked, this,
            [this](int column) { model_->sort(column); });
    core::setScreenButtons(this, cmdGo, cmdExit);

    showMonth(QDate::currentDate());
}

// The window it is shown in exists only now: it opens as wide as the month.
void frmsickness::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (sized_) return;
    sized_ = true;
    fitWidth(shown_.daysInMonth());
}

void frmsickness::showMonth(const QDate& anyDayOfMonth) {
    shown_ = QDate(anyDayOfMonth.year(), anyDayOfMonth.month(), 1);
    lblMonth->setText(reports::monthCaption(shown_));
}

void frmsickness::loadall(const QDate& date, bool includeleavers) {
    core::guarded(
        windowTitle(),
        [&] {
            model_->setRows(reports::monthEmployees(core::db(), date, monthstart_, includeleavers));
        },
        this);
}

void frmsickness::moveMonth(int months) {
    cmdExport->setEnabled(false);
    model_->clear();
    showMonth(shown_.addMonths(months));
    monthstart_ = shown_;
    loadall(shown_.addDays(shown_.daysInMonth() - 1), chkLeavers->isChecked());
}

void frmsickness::previousMonth() {
    moveMonth(-1);
}
void frmsickness::nextMonth() {
    moveMonth(1);
}

void frmsickness::leaversChanged() {
    model_->clear();
    monthstart_ = shown_;
    loadall(shown_.addDays(shown_.daysInMonth() - 1), chkLeavers->isChecked());
    cmdExport->setEnabled(false);
}

void frmsickness::go() {
    monthstart_ = shown_;
    fitWidth(shown_.daysInMonth());
    std::vector<reports::GridRow> rows = model_->grid().rows();
    core::guarded(
        windowTitle(),
        [&] {
            reports::ProgressPanel progress("Calculating Report", this);
            model_->setGrid(reports::calculateGrid(
                core::db(), monthstart_, std::move(rows), QDate::currentDate(),
                [&](int done, int total) { progress.set(done, total); }));
            cmdExport->setEnabled(true);
        },
        this);
}

void frmsickness::exportToExcel() {
    const auto& grid = model_->grid();
    if (grid.days() == 0) return;
    reports::exportSpreadsheet(reports::attendanceSheet(grid, model_->shownOrder()),
                               "sickness.xltx",
                               "Attendance for the month of " + lblMonth->text().trimmed(), this);
}

void frmsickness::openSelected(const QModelIndex& index) {
    if (model_->rowCount() == 0 || !index.isValid()) return;
    const qint64 id = model_->idAt(index.row());
    openEmployee(QString::number(id));
    close();
}

// The window follows the length of the month: 28 days 13475 twips up to 31 days 14790.
void frmsickness::fitWidth(int days) {
    static const int widths[] = {13475, 13856, 14260, 14790};
    const int width = pixels(widths[std::clamp(days, 28, 31) - 28]);
    if (auto* sub = qobject_cast<QMdiSubWindow*>(parentWidget()))
        sub->resize(width, sub->height());
    else
        resize(width, std::max(height(), 560));
}
