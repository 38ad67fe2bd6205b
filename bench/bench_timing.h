#pragma once

// Timing a step of a benchmark several times, and the process's peak memory.
#include <QByteArray>
#include <QElapsedTimer>
#include <QFile>
#include <algorithm>
#include <functional>
#include <vector>

// Milliseconds of each run of a step, sorted, and the rows the last run reported.
struct Runs {
    std::vector<double> ms;
    int rows = 0;

    double median() const { return ms[ms.size() / 2]; }
    double min() const { return ms.front(); }
    double max() const { return ms.back(); }
    int count() const { return int(ms.size()); }
};

// Runs `step` `runs` times (at least once); the step returns the rows it listed or wrote.
inline Runs timeRuns(int runs, const std::function<int()>& step) {
    Runs r;
    for (int i = 0; i < std::max(runs, 1); ++i) {
        QElapsedTimer timer;
        timer.start();
        r.rows = step();
        r.ms.push_back(double(timer.nsecsElapsed()) / 1e6);
    }
    std::sort(r.ms.begin(), r.ms.end());
    return r;
}

// The most memory the process has held so far (VmHWM), in megabytes; -1 where unknown.
inline double peakMegabytes() {
    QFile status("/proc/self/status");
    if (!status.open(QIODevice::ReadOnly)) return -1;
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith("VmHWM:"))
            return line.mid(6).trimmed().split(' ').front().toDouble() / 1024.0;
    return -1;
}
