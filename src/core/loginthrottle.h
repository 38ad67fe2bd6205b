#pragma once

#include <QString>

namespace core {

// Time as the login throttle sees it. The program's own clock waits with the event loop
// running; tests give one of their own that records the waits instead of sleeping.
class ThrottleClock {
public:
    virtual ~ThrottleClock() = default;
    virtual qint64 nowMs() = 0;
    virtual void waitMs(qint64 ms) = 0;
};
ThrottleClock& systemClock();

// Makes guessing passwords slow: after three refusals in a row every further attempt waits
// longer (1 s, 2 s, 4 s ... at most 30 s), and every refusal is written to the error log with
// the login name and the time, never the password.
class LoginThrottle {
public:
    explicit LoginThrottle(ThrottleClock& clock = systemClock());

    // The wait before the next attempt after this many refusals in a row.
    static qint64 delayMs(int refusalsInRow);

    // Waits, when refusals call for it, until the next attempt may go ahead.
    void beforeAttempt();
    void refused(const QString& user);
    void accepted();
    int refusalsInRow() const { return refusals_; }

private:
    ThrottleClock& clock_;
    int refusals_ = 0;
    qint64 lastRefusal_ = 0;
};

// How a login name may stand in the error log: on one line, and not without end.
QString loggableLogin(const QString& user);

} // namespace core
