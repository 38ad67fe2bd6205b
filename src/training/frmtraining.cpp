#include "frmtraining.h"

#include "bookings.h"
#include "combos.h"
#include "datebox.h"
#include "failure.h"
#include "frmcourse.h"
#include "messagebox.h"
#include "modal.h"
#include "programme_checks.h"
#include "regional.h"
#include "screenbase.h"
#include "session.h"
#include "widgetkit.h"

#include <QCalendarWidget>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRegularExpression>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

QLineEdit* textBox(QWidget* parent, const char* name) {
    auto* box = new QLineEdit(parent);
    box->setObjectName(name);
    return box;
}

// A field with its buttons beside it, for one row of the form.
QWidget* besides(QWidget* parent, QWidget* field, std::initializer_list<QWidget*> buttons,
                 bool top = false) {
    auto* holder = new QWidget(parent);
    auto* row = new QHBoxLayout(holder);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(field, 1);
    auto* column = new QVBoxLayout;
    for (QWidget* b : buttons)
        column->addWidget(b);
    if (top) column->addStretch();
    row->addLayout(column);
    return holder;
}

} // namespace

frmtraining::frmtraining(QWidget* parent)
    : QWidget(parent) {
    setObjectName("frmtraining");
    setWindowTitle("New Training Programme");
    txtStartDate = new DateBox("txtStartDate", this);
    txtEndDate = new DateBox("txtEndDate", this);
    txtTime = textBox(this, "txtTime");
    txtTime->setInputMask("00:00");
    cboCourse = core::autoCompleteCombo(this, "cboCourse");
    cmdAddCourse = core::makeButton(this, "...", "cmdAddCourse");
    cmdAddCourse->setToolTip("Add Course");
    cmdAddCourse->setFixedWidth(32);
    txtLocation = textBox(this, "txtLocation");
    txtInstructor = textBox(this, "txtInstructor");
    txtDescription = textBox(this, "txtDescription");
    txtPrice = textBox(this, "txtPrice");
    cboEmployee = core::autoCompleteCombo(this, "cboEmployee");
    lstEmployees = new QListWidget(this);
    lstEmployees->setObjectName("lstEmployees");
    cmdSchedule = core::makeButton(this, "Schedule", "cmdSchedule");
    cmdRemove = core::makeButton(this, "Remove", "cmdRemove");
    cmdOK = core::makeButton(this, "OK", "cmdOK", true);
    cmdCancel = core::makeButton(this, "Cancel", "cmdCancel");
    core::setScreenButtons(this, cmdOK, cmdCancel);

    core::formLayout(this,
                     {{"Start Date", txtStartDate},
                      {"End Date", txtEndDate},
                      {"Time", txtTime},
                      {"Course Title", besides(this, cboCourse, {cmdAddCourse})},
                      {"Location", txtLocation},
                      {"Instructor", txtInstructor},
                      {"Description", txtDescription},
                      {"Price", txtPrice},
                      {"Select Employee", besides(this, cboEmployee, {cmdSchedule})},
                      {"Employees on this course", besides(this, lstEmployees, {cmdRemove}, true)}},
                     {cmdOK, cmdCancel});

    connect(cboCourse, &QComboBox::currentIndexChanged, this, [this](int index) {
        bool ok = false;
        const qint64 id = cboCourse->itemData(index).toLongLong(&ok);
        if (index >= 0 && ok) courseid = id;
    });
    connect(txtEndDate->button(), &QToolButton::clicked, this, &frmtraining::endDateCalendar);
    connect(cmdAddCourse, &QPushButton::clicked, this, &frmtraining::addCourse);
    connect(cmdSchedule, &QPushButton::clicked, this, &frmtraining::scheduleEmployee);
    connect(cmdRemove, &QPushButton::clicked, this, &frmtraining::removeEmployee);
    connect(cmdOK, &QPushButton::clicked, this, &frmtraining::ok);
    connect(cmdCancel, &QPushButton::clicked, this, &QWidget::close);

    core::guarded(
        windowTitle(),
        [this] {
            for (const auto& e : training::bookableEmployees(core::db()))
                core::addComboItem(cboEmployee, e.text, e.id);
            cboEmployee->setCurrentIndex(-1);
            loadCourses();
        },
        this);
}

void frmtraining::loadCourses() {
    // Filling passes over the first item, which is no pick of the user's.
    const qint64 kept = courseid;
    cboCourse->clear();
    for (const auto& c : training::courseEntries(core::db()))
        core::addComboItem(cboCourse, c.text, c.id);
    cboCourse->setCurrentIndex(-1);
    courseid = kept;
}

// The end date's calendar opens on the start date, where the course most likely ends.
void frmtraining::endDateCalendar() {
    if (!txtEndDate->isCalendarVisible()) return;
    if (const QDate start = txtStartDate->date(); start.isValid())
        txtEndDate->calendar()->setSelectedDate(start);
}

training::ProgrammeText frmtraining::programme() const {
    static const QRegularExpression digit(QStringLiteral("\\d"));
    training::ProgrammeText p;
    p.start = txtStartDate->text();
    p.end = txtEndDate->text();
    // The mask leaves its ":" in an untouched box.
    p.time = txtTime->text().contains(digit) ? txtTime->text().trimmed() : QString();
    p.courseTitle = cboCourse->currentText();
    p.courseId = chosenCourse();
    p.location = txtLocation->text();
    p.instructor = txtInstructor->text();
    p.description = txtDescription->text();
    p.price = txtPrice->text();
    return p;
}

qint64 frmtraining::chosenCourse() const {
    const qint64 picked = core::comboId(cboCourse);
    if (picked != core::NoComboId) return picked;
    return cboCourse->currentText().trimmed().isEmpty() ? 0 : courseid;
}

QList<qint64> frmtraining::bookedIds() const {
    QList<qint64> ids;
    for (int i = 0; i < lstEmployees->count(); ++i)
        ids << lstEmployees->item(i)->data(Qt::UserRole).toLongLong();
    return ids;
}

void frmtraining::addBooked(const training::Entry& entry) {
    auto* item = new QListWidgetItem(entry.text, lstEmployees);
    item->setData(Qt::UserRole, entry.id);
}

void frmtraining::addCourse() {
    frmCourse dialog(this);
    core::showModal(dialog);
    if (!dialog.ok) return;
    core::guarded(
        windowTitle(),
        [&] {
            const qint64 id = training::addCourse(core::db(), dialog.txtTitle->text());
            loadCourses();
            core::selectComboId(cboCourse, id);
            courseid = id;
        },
        this);
}

void frmtraining::scheduleEmployee() {
    const qint64 person = core::comboId(cboEmployee);
    training::ScheduleRequest request{person == core::NoComboId ? 0 : person, bookedIds(),
                                      isnewtraining ? 0 : trainingid, programme()};
    core::guarded(
        windowTitle(),
        [&] {
            const auto outcome = training::schedule(core::db(), request);
            if (!outcome.booked()) {
                core::msgbox(outcome.message);
                return;
            }
            addBooked({cboEmployee->currentText().trimmed(), request.personId});
            if (isnewtraining)
                loaded_ = training::loadedProgrammeRow(core::db(), outcome.trainingId);
            trainingid = outcome.trainingId;
            isnewtraining = false;
        },
        this);
}

void frmtraining::removeEmployee() {
    QListWidgetItem* item = lstEmployees->currentItem();
    if (!item) return;
    const qint64 person = item->data(Qt::UserRole).toLongLong();
    const bool removed = core::guarded(
        windowTitle(),
        [&] {
            if (!isnewtraining) training::removeBooking(core::db(), trainingid, person);
        },
        this);
    if (removed) delete item;
}

void frmtraining::ok() {
    const training::ProgrammeText p = programme();
    if (const QString refusal = training::checkProgramme(p); !refusal.isEmpty()) {
        core::msgbox(refusal);
        return;
    }
    // Every booking has already saved the programme, so a new one has nobody booked yet.
    bool changedMeanwhile = false;
    const bool saved = core::guarded(
        windowTitle(),
        [&] {
            if (isnewtraining) {
                trainingid = training::saveNewProgramme(core::db(), p);
                isnewtraining = false;
                return;
            }
            try {
                training::updateProgramme(core::db(), trainingid, p, loaded_);
            } catch (const core::RowChanged&) {
                changedMeanwhile = true;
            }
        },
        this);
    if (changedMeanwhile) {
        if (core::offerReload("training programme", this)) load(trainingid);
        return;
    }
    if (saved) close();
}

void frmtraining::load(qint64 trainingId) {
    core::guarded(
        windowTitle(),
        [&] {
            loaded_ = training::loadedProgrammeRow(core::db(), trainingId);
            if (const auto p = training::loadProgramme(core::db(), trainingId)) {
                txtStartDate->setText(p->start.isValid() ? core::formatDate(p->start) + " "
                                                         : QString());
                txtTime->setText(p->time);
                if (!core::selectComboId(cboCourse, p->courseId)) cboCourse->setEditText(p->title);
                courseid = p->courseId;
                txtLocation->setText(p->location);
                txtInstructor->setText(p->instructor);
                txtDescription->setText(p->description);
                txtEndDate->setDate(p->end);
                txtPrice->setText(p->price);
            } else {
                core::msgbox("That course is not listed");
            }
            lstEmployees->clear();
            for (const auto& e : training::bookedEmployees(core::db(), trainingId))
                addBooked(e);
            trainingid = trainingId;
            isnewtraining = false;
            setWindowTitle("Training : " + cboCourse->currentText().trimmed());
        },
        this);
}
