#pragma once

#include <QString>
#include <memory>

class QProgressDialog;
class QWidget;

namespace reports {

// The bar shown while a report is calculated or written; it appears only once the work has
// taken a moment, so quick runs do not flash it.
class ProgressPanel {
public:
    explicit ProgressPanel(const QString& caption, QWidget* parent = nullptr);
    ~ProgressPanel();
    ProgressPanel(const ProgressPanel&) = delete;
    ProgressPanel& operator=(const ProgressPanel&) = delete;

    // Moves the bar and lets the screen repaint.
    void set(int done, int total);

private:
    std::unique_ptr<QProgressDialog> dialog_;
};

} // namespace reports
