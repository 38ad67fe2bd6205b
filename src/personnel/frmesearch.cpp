#include "frmesearch.h"

#include "combos.h"
#include "failure.h"
#include "messagebox.h"
#include "openemployee.h"
#include "person_record.h"
#include "recordlist.h"
#include "regional.h"
#include "screenbase.h"
#include "session.h"
#include "widgetkit.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <QTabWidget>
#include <QVBoxLayout>

using personnel::FoundPeople;

namespace {

// Column widths were set in twips, fifteen to a pixel on the usual screen.
constexpr int twips(int t) {
    return t / 15;
}

template <class W> W* named(W* widget, const QString& name) {
    widget->setObjectName(name);
    return widget;
}

// Cleared first, never merged; every text trimmed.
void refill(QComboBox* combo, const personnel::ComboEntries& entries, bool withKeys) {
    combo->clear();
    for (const auto& e : entries) {
        if (withKeys)
            core::addComboItem(combo, e.text.trimmed(), e.id);
        else
            combo->addItem(e.text.trimmed());
    }
    combo->setCurrentIndex(-1);
}

// A combo whose text is no item of its list counts as not chosen.
std::optional<qint64> chosen(const QComboBox* combo) {
    const qint64 id = core::comboId(combo);
    return id == core::NoComboId ? std::nullopt : std::optional<qint64>(id);
}

QGridLayout* page(QWidget* widget) {
    auto* grid = new QGridLayout(widget);
    grid->setColumnStretch(1, 1);
    return grid;
}

void addRow(QGridLayout* grid, const QString& caption, QWidget* field) {
    const int row = grid->rowCount();
    grid->addWidget(new QLabel(caption), row, 0);
    grid->addWidget(field, row, 1);
}

} // namespace

frmesearch::frmesearch(QWidget* parent)
    : QWidget(parent) {
    setObjectName("frmesearch");
    setWindowTitle("Employee Search");

    SSTab1 = named(new QTabWidget(this), "SSTab1");
    SSTab1->addTab(buildGeneral(), "General");
    SSTab1->addTab(buildDate(), "Date");
    SSTab1->addTab(buildComboPage({"Position", "cboPosition", cboPosition},
                                  {"Location", "cboLocation", cboLocation}, cmdPostSearch,
                                  "cmdPostSearch"),
                   "Position/Location");
    SSTab1->addTab(buildComboPage({"Line manager", "cboManager", cboManager},
                                  {"Department", "cboDepartment", cboDepartment}, cmdManagerSearch,
                                  "cmdManagerSearch"),
                   "Manager/Dept");

    ListView1 = named(new RecordList(this), "ListView1");
    ListView1->setColumns({"Personnel No", "Surname", "Firstnames", "DOB"},
                          {twips(1250), twips(1900), twips(2000), twips(1250)});
    cmdOK = core::makeButton(this, "OK", "cmdOK");
    cmdCancel = core::makeButton(this, "Cancel", "cmdCancel");

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(SSTab1);
    layout->addWidget(ListView1, 1);
    layout->addLayout(core::buttonRow({cmdOK, cmdCancel}));
    setMinimumSize(twips(7200), twips(6600));

    connect(SSTab1, &QTabWidget::currentChanged, ListView1, &RecordList::clearRecords);
    connect(cmdSearch, &QPushButton::clicked, this, &frmesearch::searchGeneral);
    connect(cmdDateSearch, &QPushButton::clicked, this, &frmesearch::searchDates);
    connect(cmdPostSearch, &QPushButton::clicked, this, &frmesearch::searchPost);
    connect(cmdManagerSearch, &QPushButton::clicked, this, &frmesearch::searchManager);
    connect(cmdOK, &QPushButton::clicked, this, &frmesearch::ok);
    connect(cmdCancel, &QPushButton::clicked, this, &QWidget::close);
    connect(ListView1, &RecordList::recordActivated, this, &frmesearch::ok);
    // Enter searches on the page on show; a highlighted result opens on Enter in the list.
    const auto searchOnEnter = [this](int page) {
        QPushButton* searches[] = {cmdSearch, cmdDateSearch, cmdPostSearch, cmdManagerSearch};
        core::setScreenButtons(this, page >= 0 && page < 4 ? searches[page] : nullptr, cmdCancel);
    };
    connect(SSTab1, &QTabWidget::currentChanged, this, searchOnEnter);
    searchOnEnter(0);

    loadcombos();
}

QWidget* frmesearch::buildGeneral() {
    auto* w = new QWidget;
    auto* grid = page(w);
    txtNumber = named(new QLineEdit(w), "txtNumber");
    // Digits only: the number is a key, and nothing else may reach the statement as one.
    txtNumber->setValidator(
        new QRegularExpressionValidator(QRegularExpression("\\d{0,18}"), txtNumber));
    txtSurname = named(new QLineEdit(w), "txtSurname");
    chkLeavers = named(new QCheckBox("Include Leavers", w), "chkLeavers");
    cmdSearch = core::makeButton(w, "Search", "cmdSearch");
    addRow(grid, "Personnel Number", txtNumber);
    addRow(grid, "Surname", txtSurname);
    grid->addWidget(chkLeavers, grid->rowCount(), 1);
    grid->addLayout(core::buttonRow({cmdSearch}), grid->rowCount(), 0, 1, 2);
    return w;
}

QWidget* frmesearch::buildDate() {
    auto* w = new QWidget;
    auto* grid = page(w);
    txtDateFrom = named(new QLineEdit(w), "txtDateFrom");
    txtDateTo = named(new QLineEdit(w), "txtDateTo");
    optStarted = named(new QRadioButton("Started", w), "optStarted");
    optLeft = named(new QRadioButton("Left", w), "optLeft");
    optStarted->setChecked(true);
    chkDateLeavers = named(new QCheckBox("Include Leavers", w), "chkDateLeavers");
    cmdDateSearch = core::makeButton(w, "Search", "cmdDateSearch");
    addRow(grid, "Date from", txtDateFrom);
    addRow(grid, "Date to", txtDateTo);
    auto* options = new QHBoxLayout;
    options->addWidget(optStarted);
    options->addWidget(optLeft);
    options->addStretch();
    grid->addLayout(options, grid->rowCount(), 1);
    grid->addWidget(chkDateLeavers, grid->rowCount(), 1);
    grid->addLayout(core::buttonRow({cmdDateSearch}), grid->rowCount(), 0, 1, 2);
    return w;
}

QWidget* frmesearch::buildComboPage(const ComboRow& first, const ComboRow& second,
                                    QPushButton*& search, const QString& searchName) {
    auto* w = new QWidget;
    auto* grid = page(w);
    for (const ComboRow* row : {&first, &second}) {
        row->combo = core::autoCompleteCombo(w, row->name);
        addRow(grid, row->caption, row->combo);
    }
    search = core::makeButton(w, "Search", searchName);
    grid->addLayout(core::buttonRow({search}), grid->rowCount(), 0, 1, 2);
    return w;
}

void frmesearch::loadcombos() {
    core::guarded(
        windowTitle(),
        [this] {
            auto& db = core::db();
            refill(cboPosition, personnel::positionEntries(db), true);
            refill(cboLocation, personnel::locationEntries(db), true);
            refill(cboDepartment, personnel::departmentEntries(db), true);
            // Line_Manager holds the manager's name, not a key: the text is what is searched.
            refill(cboManager, personnel::lineManagerEntries(db), false);
        },
        this);
}

void frmesearch::fillList(const FoundPeople& people, bool numberWithBlank) {
    ListView1->beginFill();
    for (const auto& p : people) {
        const QString number = QString::number(p.id) + (numberWithBlank ? " " : "");
        ListView1->addRecord(p.id, {number, p.surname, p.firstnames, core::formatDate(p.date)});
    }
    ListView1->endFill();
}

void frmesearch::run(const std::function<FoundPeople()>& search, bool numberWithBlank) {
    ListView1->clearRecords();
    core::guarded(
        windowTitle(), [&] { fillList(search(), numberWithBlank); }, this);
}

void frmesearch::searchGeneral() {
    run(
        [this] {
            return personnel::searchGeneral(core::db(), txtNumber->text(), txtSurname->text(),
                                            chkLeavers->isChecked());
        },
        true);
    if (ListView1->topLevelItemCount() > 0) ListView1->setCurrentItem(ListView1->topLevelItem(0));
}

void frmesearch::searchDates() {
    ListView1->clearRecords();
    const personnel::DateRange range =
        personnel::readDateRange(txtDateFrom->text(), txtDateTo->text());
    if (range.entry == personnel::DateEntry::Missing) {
        core::msgbox(personnel::missingDatesMessage(), {}, core::MsgButtons::Ok,
                     core::MsgIcon::None, this);
        return;
    }
    if (range.entry == personnel::DateEntry::NotADate) {
        core::showdateformat();
        return;
    }
    const auto option =
        optLeft->isChecked() ? personnel::DateOption::Left : personnel::DateOption::Started;
    run([&] {
        return personnel::searchByDate(core::db(), range.from, range.to, option,
                                       chkDateLeavers->isChecked());
    });
}

void frmesearch::searchPost() {
    run([this] {
        return personnel::searchByPost(core::db(), chosen(cboPosition), chosen(cboLocation));
    });
}

void frmesearch::searchManager() {
    run([this] {
        return personnel::searchByManager(core::db(), cboManager->currentText(),
                                          chosen(cboDepartment));
    });
}

void frmesearch::ok() {
    const QList<QTreeWidgetItem*> selected = ListView1->selectedItems();
    if (ListView1->count() == 0 || selected.isEmpty()) return;
    openEmployee(selected.first()->text(0));
    close();
}
