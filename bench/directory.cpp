// Times one key stroke in the telephone directory (the search and the refill of its list) for
// one-, two- and three-letter beginnings, on a demo organisation of 20,000 employees topped up
// to 5,000 contacts and 2,000 suppliers.
// Backend: QUILLORNE_BENCH_BACKEND=postgres (with QUILLORNE_PG_*), otherwise embedded.
// Run with QT_QPA_PLATFORM=offscreen. Arguments: employees, contacts, suppliers, runs.
#include "directory.h"
#include "bench_database.h"
#include "frmteldir.h"
#include "recordlist.h"
#include "supplier_record.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <random>

namespace {

const char* const Beginnings[] = {"b", "ch", "har", "m", "wi", "smi", "p", "ro", "tay", "j"};

// Tops a table up to the count with made-up names beginning with any letter.
void topUp(core::Db& db, const QString& table, int wanted, const std::function<void(int)>& add) {
    const int have = int(db.scalar("SELECT COUNT(*) FROM " + table).toLongLong());
    core::Transaction t(db);
    for (int i = have; i < wanted; ++i)
        add(i);
    t.commit();
}

QString madeUpName(std::mt19937& rnd) {
    static const char* const starts[] = {"Bar", "Chal", "Har", "Mor", "Wil", "Smi", "Pe",
                                         "Rob", "Tay",  "Jo",  "Ke",  "Ab",  "Eg",  "Ni"};
    static const char* const ends[] = {"ton", "ker", "ley", "well", "th", "son", "man", "ford"};
    return QString("%1%2").arg(starts[rnd() % std::size(starts)], ends[rnd() % std::size(ends)]);
}

// Wall time, and the processor time of this program (all of the work on the embedded
// database; on PostgreSQL the server's share is left out), so that a busy machine shows.
struct Timing {
    std::vector<qint64> micros;
    std::vector<qint64> cpuMicros;
    qint64 rows = 0;
};

struct Stopwatch {
    QElapsedTimer wall;
    std::clock_t cpu = std::clock();
    Stopwatch() { wall.start(); }
    void stop(Timing& t) const {
        t.micros.push_back(wall.nsecsElapsed() / 1000);
        t.cpuMicros.push_back(qint64(std::clock() - cpu) * 1000000 / CLOCKS_PER_SEC);
    }
};

void report(const char* backend, const char* what, int letters, Timing& t) {
    std::sort(t.micros.begin(), t.micros.end());
    std::sort(t.cpuMicros.begin(), t.cpuMicros.end());
    std::printf("%s: %s, %d-letter beginnings: median %.1f ms (processor %.1f ms), max %.1f ms "
                "per key stroke, %.0f rows listed on average (%zu key strokes)\n",
                backend, what, letters, t.micros[t.micros.size() / 2] / 1000.0,
                t.cpuMicros[t.cpuMicros.size() / 2] / 1000.0, t.micros.back() / 1000.0,
                double(t.rows) / double(t.micros.size()), t.micros.size());
}

// Types each beginning a letter at a time into the box, timing every key stroke from the
// change of text to the list filled and painted.
void typeInto(const char* backend, const char* what, QLineEdit* box, RecordList* list, int runs) {
    Timing byLength[3];
    for (int run = 0; run < runs; ++run)
        for (const char* beginning : Beginnings) {
            box->clear();
            QApplication::processEvents();
            const QString word = QString::fromLatin1(beginning);
            for (int n = 1; n <= word.size(); ++n) {
                const Stopwatch watch;
                box->setText(word.left(n));
                QApplication::processEvents();
                watch.stop(byLength[n - 1]);
                byLength[n - 1].rows += list->count();
            }
        }
    for (int n = 0; n < 3; ++n)
        report(backend, what, n + 1, byLength[n]);
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    const int employees = argc > 1 ? std::atoi(argv[1]) : 20000;
    const int contacts = argc > 2 ? std::atoi(argv[2]) : 5000;
    const int supplierCount = argc > 3 ? std::atoi(argv[3]) : 2000;
    const int runs = argc > 4 ? std::atoi(argv[4]) : 5;
    BenchDatabase database("bench_directory", employees);
    const char* backend = database.backend();
    core::Db& db = core::db();
    std::mt19937 rnd(7);
    topUp(db, "contact", contacts, [&](int i) {
        suppliers::addPersonContact(db,
                                    {"Pat", madeUpName(rnd), QString("0207 %1").arg(i), "", ""});
    });
    topUp(db, "Supplier", supplierCount, [&](int i) {
        suppliers::SupplierText s;
        s.name = madeUpName(rnd) + " Supplies";
        s.phone = QString("0113 %1").arg(i);
        suppliers::insertSupplier(db, s);
    });
    std::printf("%s: %lld employees, %lld contacts, %lld suppliers\n", backend,
                db.scalar("SELECT COUNT(*) FROM Person").toLongLong(),
                db.scalar("SELECT COUNT(*) FROM contact").toLongLong(),
                db.scalar("SELECT COUNT(*) FROM Supplier").toLongLong());

    // The search alone, without the list, for the same beginnings.
    {
        Timing byLength[3];
        for (int run = 0; run < runs; ++run)
            for (const char* beginning : Beginnings) {
                const QString word = QString::fromLatin1(beginning);
                for (int n = 1; n <= word.size(); ++n) {
                    const Stopwatch watch;
                    const auto found = suppliers::findPeople(db, word.left(n));
                    watch.stop(byLength[n - 1]);
                    byLength[n - 1].rows += qint64(found.size());
                }
            }
        for (int n = 0; n < 3; ++n)
            report(backend, "Surname search alone", n + 1, byLength[n]);
    }

    frmTelDir directory;
    directory.resize(600, 500);
    directory.show();
    QApplication::processEvents();
    typeInto(backend, "Surname (employees and contacts)", directory.txtSurname, directory.ListView1,
             runs);
    directory.showPage(1);
    typeInto(backend, "Company Name (suppliers)", directory.txtCompany, directory.ListView2, runs);
    return 0;
}
