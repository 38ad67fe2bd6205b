#include "frmtrainrep.h"

#include "combos.h"
#include "failure.h"
#include "messagebox.h"
#include "programmes.h"
#include "recordlist.h"
#include "screenbase.h"
#include "session.h"
#include "training_report.h"
#include "widgetkit.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {

QWidget* searchPage(QWidget* parent, const QString& caption, QComboBox* combo,
                    QPushButton* search) {
    auto* page = new QWidget(parent);
    auto* row = new QHBoxLayout(page);
    auto* label = new QLabel(caption, page);
    label->setBuddy(combo);
    row->addWidget(label);
    row->addWidget(combo, 1);
    row->addWidget(search);
    return page;
}

// The index of the item the box shows, -1 when its text is no item's.
int pickedIndex(const QComboBox* combo) {
    const int index = combo->currentIndex();
    if (index < 0 || combo->currentText() != combo->itemText(index)) return -1;
    return index;
}

} // namespace

frmTrainRep::frmTrainRep(QWidget* parent)
    : QWidget(parent) {
    setObjectName("frmTrainRep");
    setWindowTitle("Training Report");
    cboCourse = core::autoCompleteCombo(this, "cboCourse");
    cboPerson = core::autoCompleteCombo(this, "cboPerson");
    for (QComboBox* combo : {cboCourse, cboPerson})
        combo->setMinimumContentsLength(30);
    cmdCourseSearch = core::makeButton(this, "Search", "cmdCourseSearch");
    cmdPersonSearch = core::makeButton(this, "Search", "cmdPersonSearch");
    SSTab1 = new QTabWidget(this);
    SSTab1->setObjectName("SSTab1");
    SSTab1->addTab(searchPage(SSTab1, "Select Course", cboCourse, cmdCourseSearch), "By Course");
    SSTab1->addTab(searchPage(SSTab1, "Select Person", cboPerson, cmdPersonSearch), "By Employee");
    ListView1 = new RecordList(this);
    ListView1->setObjectName("ListView1");
    // 1100, 3750 and 1900 twips.
    ListView1->setColumns({"Date", "Course", "Attendee"}, {73, 250, 127});
    ListView1->setMinimumSize(480, 320);
    cmdClose = core::makeButton(this, "Close", "cmdClose");

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(SSTab1);
    layout->addWidget(ListView1, 1);
    layout->addLayout(core::buttonRow({cmdClose}));

    connect(SSTab1, &QTabWidget::currentChanged, this, &frmTrainRep::pageChanged);
    connect(cmdCourseSearch, &QPushButton::clicked, this, &frmTrainRep::searchByCourse);
    connect(cmdPersonSearch, &QPushButton::clicked, this, &frmTrainRep::searchByEmployee);
    connect(cmdClose, &QPushButton::clicked, this, &QWidget::close);
    // Enter searches on the page on show.
    const auto searchOnEnter = [this](int page) {
        core::setScreenButtons(this, page == 0 ? cmdCourseSearch : cmdPersonSearch, cmdClose);
    };
    connect(SSTab1, &QTabWidget::currentChanged, this, searchOnEnter);
    searchOnEnter(0);
}

void frmTrainRep::loadall() {
    core::guarded(
        windowTitle(),
        [this] {
            auto& db = core::db();
            cboPerson->clear();
            for (const auto& p : training::everyEmployee(db))
                core::addComboItem(cboPerson, p.text, p.id);
            cboPerson->setCurrentIndex(-1);
            cboCourse->clear();
            for (const auto& c : training::courseEntries(db))
                core::addComboItem(cboCourse, c.text, c.id);
            cboCourse->addItem("All");
            cboCourse->setCurrentIndex(-1);
        },
        this);
}

void frmTrainRep::pageChanged() {
    ListView1->clearRecords();
    for (QComboBox* combo : {cboCourse, cboPerson}) {
        combo->setCurrentIndex(-1);
        combo->clearEditText();
    }
}

void frmTrainRep::showRows(const std::vector<QStringList>& rows) {
    ListView1->beginFill();
    for (const QStringList& cells : rows)
        ListView1->addRecord(0, cells);
    ListView1->endFill();
}

void frmTrainRep::searchByCourse() {
    ListView1->clearRecords();
    if (cboCourse->currentText().trimmed().isEmpty()) {
        core::msgbox("Please select a course or select all to display all courses");
        return;
    }
    const int index = pickedIndex(cboCourse);
    if (index < 0) return;
    const bool all = index == cboCourse->count() - 1;
    core::guarded(
        windowTitle(),
        [&] {
            showRows(training::courseReport(
                core::db(), all ? std::nullopt : std::optional<qint64>(core::comboId(cboCourse))));
        },
        this);
}

void frmTrainRep::searchByEmployee() {
    ListView1->clearRecords();
    if (cboPerson->currentText().trimmed().isEmpty()) {
        core::msgbox("Please select an employee to report on");
        return;
    }
    const qint64 person = core::comboId(cboPerson);
    if (person == core::NoComboId) return;
    core::guarded(
        windowTitle(),
        [&] {
            showRows(training::employeeReport(core::db(), person));
            if (ListView1->count() == 0) core::msgbox("There are no matching records");
        },
        this);
}
