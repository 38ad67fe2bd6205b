#pragma once

#include <QDate>
#include <QWidget>

class QCalendarWidget;
class QLineEdit;
class QToolButton;

// A text box for a date with a button beside it that toggles a month calendar under the box.
// Dates are shown and read in the session's regional profile. Leaving the box with text that
// is not a date clears it, or, in warning mode, says which format is wanted and keeps the
// focus in the box.
//
// The box's objectName names its parts: "<name>Text" (the line edit), "<name>Button" and
// "<name>Calendar".
class DateBox : public QWidget {
    Q_OBJECT
public:
    explicit DateBox(QWidget* parent = nullptr);
    explicit DateBox(const QString& name, QWidget* parent = nullptr);

    // Invalid when the box is blank or does not hold a date.
    QDate date() const;
    // An invalid date empties the box.
    void setDate(const QDate& date);
    QString text() const;
    void setText(const QString& text);
    // Nothing but blanks.
    bool isBlank() const;

    // Esc (27) fills in today's date instead of reaching the dialog.
    void setEscapeForToday(bool on) { escapeForToday_ = on; }
    bool escapeForToday() const { return escapeForToday_; }
    // Text that is no date is kept, the date format message shown and the focus put back.
    void setWarnOnInvalid(bool on) { warnOnInvalid_ = on; }
    bool warnOnInvalid() const { return warnOnInvalid_; }
    // The message of warning mode when a box words its own; "" for the date format message.
    void setInvalidMessage(const QString& text) { invalidMessage_ = text; }

    QLineEdit* lineEdit() const { return edit_; }
    QToolButton* button() const { return button_; }
    QCalendarWidget* calendar() const { return calendar_; }
    bool isCalendarVisible() const;

public slots:
    void toggleCalendar();
    void showCalendar();
    void hideCalendar();

signals:
    // date() has changed, by typing, a pick on the calendar, Esc or a set.
    void dateChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void pick(const QDate& date);
    void leaving();
    void warnAndReturn();
    void nameParts();
    void textEdited();

    QLineEdit* edit_ = nullptr;
    QToolButton* button_ = nullptr;
    QCalendarWidget* calendar_ = nullptr;
    bool escapeForToday_ = false;
    bool warnOnInvalid_ = false;
    bool warningPending_ = false;
    QString invalidMessage_;
    QDate lastDate_;
};
