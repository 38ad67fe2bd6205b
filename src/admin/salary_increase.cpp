#include "salary_increase.h"

#include <QSqlError>
#include <QStringList>

namespace admin {

using core::Db;
using core::Money;

std::optional<Money> parsePercent(const QString& text) {
    QString t = text.trimmed();
    if (t.startsWith('+')) t.remove(0, 1);
    if (t.startsWith('.')) t.prepend('0');
    // More decimals than a percentage keeps would be rounded away unseen.
    if (const qsizetype point = t.indexOf('.'); point >= 0 && t.size() - point - 1 > 4)
        return std::nullopt;
    return Money::parse(t);
}

Money raisedSalary(Money salary, Money percent) {
    // In ten-thousandths: salary * (100 + pct) / 100, then to whole pennies (100 units).
    const __int128 numerator = __int128(salary.units()) * (100 * Money::Scale + percent.units());
    const __int128 denominator = __int128(100) * Money::Scale * 100;
    const __int128 magnitude = numerator < 0 ? -numerator : numerator;
    __int128 pennies = (magnitude + denominator / 2) / denominator;
    if (numerator < 0) pennies = -pennies;
    return Money::fromUnits(qint64(pennies * 100));
}

QString salaryIncreaseQuestion(const QString& percentText) {
    return QStringLiteral("Are you sure you want to increase all employees salary by %1%. Make "
                          "sure all employee records are closed before running this salary "
                          "update ")
        .arg(percentText);
}

int increaseSalaries(Db& db, const QString& percentText, const QDate& today) {
    const std::optional<Money> percent = parsePercent(percentText);
    if (!percent)
        throw core::DbError(core::DbErrorKind::Other,
                            QStringLiteral("%1 is not a percentage").arg(percentText));
    const QString note = QStringLiteral("%1% Salary increase").arg(percentText.trimmed());
    const QString current =
        "FROM Person LEFT JOIN Position ON Position.PositionID = Person.Position_ID "
        "WHERE Person.blndeleted <> 1 AND Person.HasLeft = 0 AND Person.salary IS NOT NULL";

    core::Transaction t(db);
    // The history rows in one statement, read from the salaries before any is changed.
    db.exec("INSERT INTO JobHistory (person_id, date_from, date_to, Position, salary, notes) "
            "SELECT Person.Person_ID, COALESCE(Person.JHDate, Person.startdate), ?, "
            "Position.Position_name, Person.salary, trim(COALESCE(Person.jhnote, '')) " +
                current,
            {today});
    std::vector<std::pair<qint64, Money>> raised;
    {
        QSqlQuery q = db.query("SELECT Person.Person_ID, Person.salary " + current);
        while (q.next())
            raised.emplace_back(q.value(0).toLongLong(),
                                raisedSalary(Money::fromVariant(q.value(1)), *percent));
    }
    if (db.backend() == core::Backend::Postgres) {
        // One statement over two arrays instead of a round trip per employee.
        QStringList ids, salaries;
        for (const auto& [id, salary] : raised) {
            ids << QString::number(id);
            salaries << salary.toString(2);
        }
        db.exec("UPDATE Person SET salary = v.salary, JHDate = ?, jhnote = ? "
                "FROM unnest(CAST(? AS BIGINT[]), CAST(? AS NUMERIC[])) AS v(id, salary) "
                "WHERE Person.Person_ID = v.id",
                {today, note, '{' + ids.join(',') + '}', '{' + salaries.join(',') + '}'});
    } else {
        QSqlQuery q(db.handle());
        if (!q.prepare("UPDATE Person SET salary = ?, JHDate = ?, jhnote = ? WHERE Person_ID = ?"))
            throw Db::classify(q.lastError(), db.backend());
        const QString day = today.toString(Qt::ISODate);
        for (const auto& [id, salary] : raised) {
            q.bindValue(0, salary.toVariant());
            q.bindValue(1, day);
            q.bindValue(2, note);
            q.bindValue(3, id);
            if (!q.exec()) throw Db::classify(q.lastError(), db.backend());
        }
    }
    t.commit();
    return int(raised.size());
}

} // namespace admin
