#include "frmholiday.h"

#include "datebox.h"
#include "period_boxes.h"
#include "screenbase.h"
#include "widgetkit.h"

#include <QLineEdit>
#include <QPushButton>

frmHoliday::frmHoliday(QWidget* parent)
    : QDialog(parent) {
    setObjectName("frmHoliday");
    setWindowTitle("Add Holiday");
    const PeriodBoxes period = makePeriodBoxes(this);
    txtStartDate = period.start;
    txtEndDate = period.end;
    txtDays = period.days;
    txtNotes = new QLineEdit(this);
    txtNotes->setObjectName("txtNotes");
    cmdOK = core::makeButton(this, "OK", "cmdOK", true);
    cmdCancel = core::makeButton(this, "Cancel", "cmdCancel");
    core::setScreenButtons(this, cmdOK, cmdCancel);

    core::formLayout(this,
                     {{"Start Date", txtStartDate},
                      {"End Date", txtEndDate},
                      {"Days", txtDays},
                      {"Notes", txtNotes}},
                     {cmdOK, cmdCancel});

    connect(cmdOK, &QPushButton::clicked, this, &frmHoliday::confirm);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmHoliday::setBooking(const personnel::HolidayBooking& b) {
    txtStartDate->setDate(b.from);
    txtEndDate->setDate(b.to);
    txtDays->setText(core::plainNumber(b.days));
    txtNotes->setText(b.notes.trimmed());
}

personnel::HolidayEntry frmHoliday::entry() const {
    return {txtStartDate->date(), txtEndDate->date(), txtDays->text().trimmed(),
            txtNotes->text().trimmed()};
}

void frmHoliday::confirm() {
    // Dates typed in any accepted way are shown back in the profile's own form.
    for (DateBox* d : {txtStartDate, txtEndDate})
        if (d->date().isValid()) d->setDate(d->date());
    const auto result =
        personnel::checkHolidayEntry(txtStartDate->text(), txtEndDate->text(), txtDays->text());
    if (!personnel::acceptOrExplain(result.check)) return;
    txtDays->setText(result.days);
    ok = true;
    accept();
}
