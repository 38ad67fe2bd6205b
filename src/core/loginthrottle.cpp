#include "loginthrottle.h"

#include "dberror.h"
#include "errorlog.h"
#include "textguard.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

namespace core {

namespace {

class SystemClock : public ThrottleClock {
public:
    SystemClock() { timer_.start(); }
    qint64 nowMs() override { return timer_.elapsed(); }
    void waitMs(qint64 ms) override {
        // The window keeps painting; nothing typed reaches it meanwhile.
        QEventLoop loop;
        QTimer::singleShot(int(ms), &loop, &QEventLoop::quit);
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    }

private:
    QElapsedTimer timer_;
};

constexpr int FreeRefusals = 3;
constexpr qint64 LongestWaitMs = 30'000;

} // namespace

ThrottleClock& systemClock() {
    static SystemClock clock;
    return clock;
}

LoginThrottle::LoginThrottle(ThrottleClock& clock)
    : clock_(clock) {}

qint64 LoginThrottle::delayMs(int refusalsInRow) {
    if (refusalsInRow < FreeRefusals) return 0;
    const int doublings = refusalsInRow - FreeRefusals;
    if (doublings >= 5) return LongestWaitMs;
    return std::min<qint64>(LongestWaitMs, qint64(1000) << doublings);
}

void LoginThrottle::beforeAttempt() {
    const qint64 due = lastRefusal_ + delayMs(refusals_);
    const qint64 now = clock_.nowMs();
    if (refusals_ >= FreeRefusals && due > now) clock_.waitMs(due - now);
}

void LoginThrottle::refused(const QString& user) {
    ++refusals_;
    lastRefusal_ = clock_.nowMs();
    logerror(DbError::LoginRefusedNumber,
             QStringLiteral("Login refused for user %1").arg(loggableLogin(user)), "Login");
}

void LoginThrottle::accepted() {
    refusals_ = 0;
}

QString loggableLogin(const QString& user) {
    constexpr int Longest = 64;
    QString name = withoutRefusedCharacters(user);
    name.replace(u'\n', u' ').replace(u'\r', u' ').replace(u'\t', u' ');
    if (name.size() > Longest)
        name = name.left(Longest) + QStringLiteral("... (%1 characters)").arg(user.size());
    return '"' + name + '"';
}

} // namespace core
