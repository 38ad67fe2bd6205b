#include "holiday_absence_pages.h"

#include "employeecontext.h"
#include "failure.h"
#include "frmabsence.h"
#include "frmholiday.h"
#include "messagebox.h"
#include "modal.h"
#include "recordlist.h"
#include "regional.h"
#include "session.h"
#include "widgetkit.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using core::Money;

namespace {

core::MsgAnswer tell(const QString& text, QWidget* parent) {
    return core::msgbox(text, {}, core::MsgButtons::Ok, core::MsgIcon::None, parent);
}

} // namespace

// ---------------------------------------------------------------------------------------------

HolidayPage::HolidayPage(QWidget* parent)
    : EmployeeListPage(
          {"FrameH", "lvwHoliday", "cmdAddHoliday", "cmdEditHoliday", "cmdDeleteHoliday"},
          {"StartDate", "EndDate", "Taken", "Notes"}, {90, 90, 60, 260}, parent) {
    setWindowTitle("Holiday");
    setStored({"Holiday", "holiday_ID", "holiday"});
    year_ = QDate::currentDate().year();
    cboHolidayYear = new QComboBox(this);
    cboHolidayYear->setObjectName("cboHolidayYear");
    cboHolidayYear->setEditable(true);
    cboHolidayYear->setInsertPolicy(QComboBox::NoInsert);
    lblTotalDays = new QLabel(this);
    lblTotalDays->setObjectName("lblTotalDays");
    lblDaysTaken = new QLabel(this);
    lblDaysTaken->setObjectName("lblDaysTaken");

    auto* top = new QHBoxLayout;
    top->addWidget(new QLabel("Holiday year", this));
    top->addWidget(cboHolidayYear);
    top->addSpacing(20);
    top->addWidget(new QLabel("Total days", this));
    top->addWidget(lblTotalDays);
    top->addSpacing(20);
    top->addWidget(new QLabel("Days taken so far", this));
    top->addWidget(lblDaysTaken);
    top->addStretch();
    static_cast<QBoxLayout*>(layout())->insertLayout(0, top);

    fillYears();
    connect(cboHolidayYear, &QComboBox::activated, this, &HolidayPage::yearChosen);
    // A year typed in shows that year's bookings as soon as the box is left.
    connect(cboHolidayYear->lineEdit(), &QLineEdit::editingFinished, this, [this] {
        const QString typed = cboHolidayYear->currentText().trimmed();
        if (typed.size() == 4 && typed != QString::number(year_)) yearChosen();
    });
    cboHolidayYear->lineEdit()->installEventFilter(this);
}

bool HolidayPage::eventFilter(QObject* watched, QEvent* event) {
    // A year is four figures; anything else typed is dropped on leaving the box.
    if (event->type() == QEvent::FocusOut && watched == cboHolidayYear->lineEdit() &&
        cboHolidayYear->currentText().trimmed().size() != 4)
        cboHolidayYear->setEditText({});
    return EmployeeListPage::eventFilter(watched, event);
}

void HolidayPage::fillYears() {
    QStringList years;
    const int current = QDate::currentDate().year();
    core::guarded(
        windowTitle(),
        [&] {
            const QDate started = context() ? context()->startDate() : QDate();
            years = personnel::holidayYears(core::db(), personId(), current, started);
        },
        this);
    if (years.isEmpty()) years << QString::number(current) << QString::number(current + 1);
    const QSignalBlocker block(cboHolidayYear);
    cboHolidayYear->clear();
    cboHolidayYear->addItems(years);
    cboHolidayYear->setCurrentIndex(cboHolidayYear->findText(QString::number(year_)));
    if (cboHolidayYear->currentIndex() < 0) cboHolidayYear->setEditText(QString::number(year_));
}

void HolidayPage::showYear(int year) {
    year_ = year;
    fillYears();
    reload();
}

void HolidayPage::setTotalDays(const QString& text) {
    lblTotalDays->setText(text.trimmed());
    showholidaytotals();
}

void HolidayPage::yearChosen() {
    list()->clearRecords();
    bookings_.clear();
    if (context() && !context()->hasFullName()) {
        tell("Please enter first and last name of employee before entering holiday information",
             this);
        return;
    }
    bool ok = false;
    const int year = cboHolidayYear->currentText().trimmed().right(4).toInt(&ok);
    if (!ok) return;
    year_ = year;
    if (ensurePerson() == 0) return;
    reload();
}

personnel::ListRows HolidayPage::rows(core::Db& db, qint64 personId) {
    bookings_ = personnel::holidayRows(db, personId, year_);
    personnel::ListRows out;
    for (const auto& b : bookings_)
        out.push_back(
            {b.id,
             b.from,
             {core::formatDate(b.from), core::formatDate(b.to), core::plainNumber(b.days), b.notes},
             {}});
    return out;
}

void HolidayPage::reloaded() {
    if (personId() == 0) bookings_.clear();
    showholidaytotals();
}

void HolidayPage::showholidaytotals() {
    const Money taken = personnel::daysTaken(bookings_);
    lblDaysTaken->setText(core::plainNumber(taken));
    const bool over = personnel::overEntitlement(lblTotalDays->text(), taken);
    lblDaysTaken->setStyleSheet(over ? "color: red;" : "color: black;");
}

qint64 HolidayPage::addRow(qint64 personId) {
    frmHoliday dialog(this);
    if (core::showModal(dialog) != QDialog::Accepted || !dialog.ok) return 0;
    const auto result = personnel::addHoliday(
        core::db(), personId, bookings_, dialog.entry(), QString::number(year_),
        lblTotalDays->text(), [this](const QString& question) {
            return core::msgbox(question, {}, core::MsgButtons::YesNoCancel,
                                core::MsgIcon::Question, this);
        });
    if (!result.message.isEmpty()) tell(result.message, this);
    if (result.unpaid && context()) context()->absencesChanged();
    return result.holidayId;
}

bool HolidayPage::editRow(qint64 id, const QTreeWidgetItem&) {
    const auto it = std::find_if(bookings_.begin(), bookings_.end(),
                                 [id](const auto& b) { return b.id == id; });
    if (it == bookings_.end()) return false;
    frmHoliday dialog(this);
    dialog.setBooking(*it);
    return editUntilSaved(dialog, dialog.ok, id, [&](const core::LoadedRow& loaded) {
        personnel::updateHoliday(core::db(), id, dialog.entry(), loaded);
    });
}

void HolidayPage::deleteRow(qint64 id) {
    personnel::deleteHoliday(core::db(), id);
    std::erase_if(bookings_, [id](const auto& b) { return b.id == id; });
    showholidaytotals();
}

// ---------------------------------------------------------------------------------------------

AbsencePage::AbsencePage(QWidget* parent)
    : EmployeeListPage(
          {"frmA", "lvwAbsence", "cmdAddAbsence", "cmdEditAbsence", "cmdDeleteAbsence"},
          {"Date From", "Date To", "Days", "Reason", "Notes"}, {90, 90, 50, 150, 220}, parent) {
    setWindowTitle("Absence");
    setStored({"Absence", "absence_ID", "absence"});
    cmdAbsent = core::makeButton(this, "Absent", "cmdAbsent");
    auto* buttons = static_cast<QBoxLayout*>(layout()->itemAt(layout()->count() - 1)->layout());
    buttons->insertWidget(1, cmdAbsent);
    connect(cmdAbsent, &QPushButton::clicked, this, &AbsencePage::absentToday);
}

personnel::ListRows AbsencePage::rows(core::Db& db, qint64 personId) {
    absences_ = personnel::absenceRows(db, personId);
    personnel::ListRows out;
    for (const auto& a : absences_)
        out.push_back({a.id,
                       a.from,
                       {core::formatDate(a.from), core::formatDate(a.to), core::plainNumber(a.days),
                        a.reason, a.notes},
                       {}});
    return out;
}

const personnel::AbsenceRow* AbsencePage::rowOf(qint64 id) const {
    for (const auto& a : absences_)
        if (a.id == id) return &a;
    return nullptr;
}

void AbsencePage::remindTraining(qint64 personId, const QDate& start, const QDate& end) {
    for (const QString& reminder : personnel::checktraining(core::db(), personId, start, end))
        tell(reminder, this);
}

void AbsencePage::checksickdays(const QDate& start) {
    const int limit = core::session().NoDaysAbsence;
    if (limit == 0 || !start.isValid()) return;
    const QString message = personnel::sickDaysMessage(absences_, start.year(), limit);
    if (!message.isEmpty()) tell(message, this);
}

void AbsencePage::remindCertificate(const personnel::AbsenceEntry& e) {
    const QString message = personnel::certificateMessage(
        e.reason, Money::parse(e.days).value_or(Money()), core::session().SickBeforeDoc);
    if (!message.isEmpty()) tell(message, this);
}

qint64 AbsencePage::addRow(qint64 personId) {
    frmabsence dialog(this);
    dialog.loadReasons(personnel::absenceReasons(core::db()));
    if (core::showModal(dialog) != QDialog::Accepted || !dialog.ok) {
        checksickdays(dialog.entry().start);
        return 0;
    }
    const personnel::AbsenceEntry e = dialog.entry();
    remindTraining(personId, e.start, e.end);
    if (personnel::checkdateclash(personnel::periodsOf(absences_), e.start, e.end)) {
        tell("Those dates are already booked as absent", this);
        return 0;
    }
    const qint64 id = personnel::insertAbsence(core::db(), personId, e);
    if (id != 0) pending_ = Pending{e, true};
    return id;
}

bool AbsencePage::editRow(qint64 id, const QTreeWidgetItem&) {
    const bool withTraining = std::exchange(trainingOnEdit_, false);
    const personnel::AbsenceRow* row = rowOf(id);
    if (!row) return false;
    frmabsence dialog(this);
    dialog.loadReasons(personnel::absenceReasons(core::db()));
    dialog.setRow(*row);
    for (;;) {
        const bool accepted = core::showModal(dialog) == QDialog::Accepted && dialog.ok;
        const personnel::AbsenceEntry e = dialog.entry();
        const bool sickness = e.reason == "Sickness";
        if (!accepted) {
            if (sickness) checksickdays(e.start);
            return false;
        }
        if (withTraining) remindTraining(personId(), e.start, e.end);
        switch (saveChecked(id, [&](const core::LoadedRow& loaded) {
            personnel::updateAbsence(core::db(), id, e, loaded);
        })) {
        case core::SaveOutcome::Saved:
            pending_ = Pending{e, sickness};
            return true;
        case core::SaveOutcome::Kept:
            break;
        default:
            return false;
        }
    }
}

void AbsencePage::reloaded() {
    if (!pending_) return;
    const Pending done = *std::exchange(pending_, std::nullopt);
    if (done.countSickDays) checksickdays(done.entry.start);
    remindCertificate(done.entry);
}

void AbsencePage::activate() {
    trainingOnEdit_ = true;
    edit();
    trainingOnEdit_ = false;
}

void AbsencePage::deleteRow(qint64 id) {
    personnel::deleteAbsence(core::db(), id);
}

void AbsencePage::absentToday() {
    const QDate today = QDate::currentDate();
    core::guarded(
        windowTitle(),
        [&] {
            remindTraining(personId(), today, today);
            const qint64 person = ensurePerson();
            if (person == 0) return;
            const QString message = personnel::markAbsent(core::db(), person, absences_, today,
                                                          core::session().SickBeforeDoc);
            if (!message.isEmpty()) tell(message, this);
        },
        this);
    reload();
}
