#include "datebox.h"

#include "messagebox.h"
#include "regional.h"

#include <QCalendarWidget>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QTimer>
#include <QToolButton>

DateBox::DateBox(QWidget* parent)
    : DateBox(QString(), parent) {}

DateBox::DateBox(const QString& name, QWidget* parent)
    : QWidget(parent) {
    edit_ = new QLineEdit(this);
    button_ = new QToolButton(this);
    button_->setText(QStringLiteral("..."));
    button_->setFocusPolicy(Qt::NoFocus);
    button_->setToolTip(tr("Calendar"));

    // A popup of its own, so that it is never clipped by the screen's frame and closes when
    // the user clicks elsewhere.
    calendar_ = new QCalendarWidget(this);
    calendar_->setWindowFlags(Qt::Popup);
    calendar_->setSelectedDate(QDate::currentDate());
    calendar_->hide();
    calendar_->installEventFilter(this);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(1);
    layout->addWidget(edit_, 1);
    layout->addWidget(button_);
    setFocusProxy(edit_);
    setSizePolicy(edit_->sizePolicy());

    edit_->installEventFilter(this);
    connect(button_, &QToolButton::clicked, this, &DateBox::toggleCalendar);
    connect(calendar_, &QCalendarWidget::clicked, this, &DateBox::pick);
    connect(calendar_, &QCalendarWidget::activated, this, &DateBox::pick);
    connect(edit_, &QLineEdit::textChanged, this, &DateBox::textEdited);
    connect(this, &QObject::objectNameChanged, this, &DateBox::nameParts);
    if (!name.isEmpty()) setObjectName(name);
}

void DateBox::nameParts() {
    const QString name = objectName();
    edit_->setObjectName(name + QStringLiteral("Text"));
    button_->setObjectName(name + QStringLiteral("Button"));
    calendar_->setObjectName(name + QStringLiteral("Calendar"));
}

QDate DateBox::date() const {
    return core::parseDate(edit_->text());
}

void DateBox::setDate(const QDate& date) {
    edit_->setText(core::formatDate(date));
}

QString DateBox::text() const {
    return edit_->text();
}

void DateBox::setText(const QString& text) {
    edit_->setText(text);
}

bool DateBox::isBlank() const {
    return edit_->text().trimmed().isEmpty();
}

bool DateBox::isCalendarVisible() const {
    return calendar_->isVisible();
}

void DateBox::toggleCalendar() {
    if (calendar_->isVisible())
        hideCalendar();
    else
        showCalendar();
}

void DateBox::showCalendar() {
    if (const QDate d = date(); d.isValid()) calendar_->setSelectedDate(d);
    calendar_->adjustSize();
    calendar_->move(mapToGlobal(QPoint(0, height())));
    calendar_->show();
    calendar_->setFocus(Qt::PopupFocusReason);
}

void DateBox::hideCalendar() {
    calendar_->hide();
}

void DateBox::pick(const QDate& date) {
    setDate(date);
    hideCalendar();
    edit_->setFocus(Qt::OtherFocusReason);
}

void DateBox::textEdited() {
    const QDate now = date();
    if (now == lastDate_) return;
    lastDate_ = now;
    emit dateChanged();
}

void DateBox::leaving() {
    if (isBlank() || date().isValid()) return;
    if (!warnOnInvalid_) {
        edit_->clear();
        return;
    }
    // The box is shown once Qt has finished handing the focus on, not from inside the
    // hand-over: a modal box there would run a nested event loop halfway through it.
    if (warningPending_) return;
    warningPending_ = true;
    QTimer::singleShot(0, this, &DateBox::warnAndReturn);
}

void DateBox::warnAndReturn() {
    warningPending_ = false;
    if (isBlank() || date().isValid()) return;
    if (invalidMessage_.isEmpty())
        core::showdateformat();
    else
        core::msgbox(invalidMessage_);
    edit_->setFocus(Qt::OtherFocusReason);
}

bool DateBox::eventFilter(QObject* watched, QEvent* event) {
    if (watched == edit_) {
        switch (event->type()) {
        case QEvent::FocusOut: {
            // Opening the calendar or switching to another program is no leaving of the box.
            const auto reason = static_cast<QFocusEvent*>(event)->reason();
            if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason) leaving();
            break;
        }
        case QEvent::ShortcutOverride:
            // Claims Esc before any shortcut of the screen does.
            if (escapeForToday_ && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
                event->accept();
                return true;
            }
            break;
        case QEvent::KeyPress:
            if (escapeForToday_ && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
                setDate(QDate::currentDate());
                return true;
            }
            break;
        default:
            break;
        }
    } else if (watched == calendar_ && event->type() == QEvent::MouseButtonPress) {
        // A press on the button while the calendar is open closes it; without this the press
        // would first close the popup and then reopen it through the button.
        const auto* mouse = static_cast<QMouseEvent*>(event);
        const QRect buttonArea(button_->mapToGlobal(QPoint(0, 0)), button_->size());
        if (buttonArea.contains(mouse->globalPosition().toPoint())) {
            calendar_->setAttribute(Qt::WA_NoMouseReplay);
            hideCalendar();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}
