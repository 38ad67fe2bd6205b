#include "period_boxes.h"

#include "datebox.h"
#include "routines.h"

#include <QCalendarWidget>
#include <QLineEdit>
#include <QToolButton>

PeriodBoxes makePeriodBoxes(QWidget* dialog) {
    auto* start = new DateBox("txtStartDate", dialog);
    auto* end = new DateBox("txtEndDate", dialog);
    auto* days = new QLineEdit(dialog);
    days->setObjectName("txtDays");
    for (DateBox* d : {start, end})
        d->calendar()->setSelectedDate(QDate::currentDate());
    QObject::connect(end->button(), &QToolButton::clicked, end, [start, end] {
        if (start->date().isValid()) end->calendar()->setSelectedDate(start->date());
    });
    const auto picked = [start, end, days] {
        if (start->date().isValid() && end->date().isValid())
            days->setText(QString::number(core::workingdays(start->date(), end->date())));
    };
    for (DateBox* d : {start, end})
        QObject::connect(d->calendar(), &QCalendarWidget::clicked, days, picked);
    return {start, end, days};
}
