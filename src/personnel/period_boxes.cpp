#include "period_boxes.h"

#include "datebox.h"
#include "routines.h"

#include <QCalendarWidget>
#include <QLineEdit>
#include <QToolButton>

void wirePeriodBoxes(DateBox* start, DateBox* end, QLineEdit* days) {
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
}
