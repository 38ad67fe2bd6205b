#include "frmteldir.h"

#include "combos.h"
#include "dialogkit.h"
#include "failure.h"
#include "frmaddcompany.h"
#include "frmaddperson.h"
#include "frmaddsupplier.h"
#include "loadedrow.h"
#include "messagebox.h"
#include "modal.h"
#include "openemployee.h"
#include "recordlist.h"
#include "screenbase.h"
#include "screenhost.h"
#include "session.h"
#include "supplier_record.h"
#include "widgetkit.h"

#include <QComboBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

using core::MsgAnswer;
using core::MsgButtons;
using core::MsgIcon;
using suppliers::EntryKind;

namespace {

constexpr int KindRole = Qt::UserRole + 1;

RecordList* directoryList(QWidget* parent, const char* name, const QString& number) {
    auto* list = new RecordList(parent);
    list->setObjectName(name);
    list->setColumns({"Name", number}, {240});
    list->setMinimumSize(380, 260);
    return list;
}

// A page: its search fields above, its list, its buttons below.
QWidget* page(QWidget* parent, std::initializer_list<std::pair<QString, QWidget*>> fields,
              RecordList* list, std::initializer_list<QPushButton*> buttons) {
    auto* w = new QWidget(parent);
    auto* grid = new QGridLayout(w);
    int row = 0;
    for (const auto& [caption, field] : fields) {
        grid->addWidget(new QLabel(caption, w), row, 0);
        grid->addWidget(field, row++, 1);
    }
    grid->addWidget(list, row++, 0, 1, 2);
    grid->addLayout(core::buttonRow(buttons), row, 0, 1, 2);
    return w;
}

} // namespace

frmTelDir::frmTelDir(QWidget* parent)
    : QWidget(parent) {
    setObjectName("frmTelDir");
    setWindowTitle("Telephone Directory");
    tabLetters = new QTabBar(this);
    tabLetters->setObjectName("tabLetters");
    tabLetters->setExpanding(false);
    tabLetters->setUsesScrollButtons(true);
    tabLetters->addTab("ALL");
    for (char c = 'A'; c <= 'Z'; ++c)
        tabLetters->addTab(QString(QChar(c)));

    SSTab1 = new QTabWidget(this);
    SSTab1->setObjectName("SSTab1");
    SSTab1->addTab(personPage(), "Find Person");
    SSTab1->addTab(supplierPage(), "Find Supplier");
    cmdExit = core::makeButton(this, "Exit", "cmdExit");
    core::setScreenButtons(this, nullptr, cmdExit);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabLetters);
    layout->addWidget(SSTab1);
    layout->addLayout(core::buttonRow({cmdExit}));

    connect(tabLetters, &QTabBar::tabBarClicked, this, &frmTelDir::letterClicked);
    connect(SSTab1, &QTabWidget::currentChanged, this, &frmTelDir::pageChanged);
    connect(SSTab2, &QTabWidget::currentChanged, this,
            [this] { pageChanged(SSTab1->currentIndex()); });
    connect(txtSurname, &QLineEdit::textChanged, this, &frmTelDir::searchPeople);
    connect(txtCompany, &QLineEdit::textChanged, this, &frmTelDir::searchByName);
    connect(txtCompany2, &QLineEdit::textChanged, this, &frmTelDir::searchByService);
    connect(cboService, &QComboBox::activated, this, &frmTelDir::serviceChosen);
    txtCompany2->installEventFilter(this);
    connect(ListView1, &QTreeWidget::itemDoubleClicked, this,
            [this](QTreeWidgetItem* item) { openPerson(item); });
    connect(ListView2, &QTreeWidget::itemDoubleClicked, this,
            [this](QTreeWidgetItem* item) { openSupplier(ListView2, item); });
    connect(ListView4, &QTreeWidget::itemDoubleClicked, this,
            [this](QTreeWidgetItem* item) { openSupplier(ListView4, item); });
    connect(ListView1, &QTreeWidget::currentItemChanged, this, &frmTelDir::refreshDeleteButton);
    connect(cmdAddContact, &QPushButton::clicked, this, &frmTelDir::addContact);
    connect(cmdAddCompany, &QPushButton::clicked, this, &frmTelDir::addCompany);
    connect(cmdAddSupplier, &QPushButton::clicked, this, &frmTelDir::addSupplier);
    connect(cmdDelete, &QPushButton::clicked, this, &frmTelDir::deletePerson);
    connect(cmdDeleteSupplier, &QPushButton::clicked, this, [this] { deleteSupplier(ListView2); });
    connect(cmdDeleteSupplier2, &QPushButton::clicked, this, [this] { deleteSupplier(ListView4); });
    connect(cmdExit, &QPushButton::clicked, this, &QWidget::close);

    core::guarded(
        windowTitle(),
        [this] {
            for (const auto& s : suppliers::allServices(core::db()))
                core::addComboItem(cboService, s.text, s.id);
            cboService->setCurrentIndex(-1);
        },
        this);
    searchPeople();
    run(ListView2, [] { return suppliers::findSuppliers(core::db(), {}); });
    run(ListView4, [] { return suppliers::findSuppliers(core::db(), {}); });
}

QWidget* frmTelDir::personPage() {
    txtSurname = new QLineEdit(this);
    txtSurname->setObjectName("txtSurname");
    ListView1 = directoryList(this, "ListView1", "Number");
    cmdAddContact = core::makeButton(this, "Add Contact", "cmdAddContact");
    cmdAddCompany = core::makeButton(this, "Add Company", "cmdAddCompany");
    cmdDelete = core::makeButton(this, "Delete", "cmdDelete");
    return page(SSTab1, {{"Surname", txtSurname}}, ListView1,
                {cmdAddContact, cmdAddCompany, cmdDelete});
}

QWidget* frmTelDir::supplierPage() {
    auto* outer = new QWidget(SSTab1);
    SSTab2 = new QTabWidget(outer);
    SSTab2->setObjectName("SSTab2");
    txtCompany = new QLineEdit(this);
    txtCompany->setObjectName("txtCompany");
    ListView2 = directoryList(this, "ListView2", "Phone");
    cmdDeleteSupplier = core::makeButton(this, "Delete", "cmdDeleteSupplier");
    SSTab2->addTab(page(SSTab2, {{"Company Name", txtCompany}}, ListView2, {cmdDeleteSupplier}),
                   "By Company Name");
    cboService = core::autoCompleteCombo(this, "cboService");
    txtCompany2 = new QLineEdit(this);
    txtCompany2->setObjectName("txtCompany2");
    ListView4 = directoryList(this, "ListView4", "Phone");
    cmdDeleteSupplier2 = core::makeButton(this, "Delete", "cmdDeleteSupplier2");
    SSTab2->addTab(page(SSTab2, {{"Service required", cboService}, {"Company Name", txtCompany2}},
                        ListView4, {cmdDeleteSupplier2}),
                   "By Service Provided");
    cmdAddSupplier = core::makeButton(this, "Add Supplier", "cmdAddSupplier");
    auto* layout = new QVBoxLayout(outer);
    layout->addWidget(SSTab2);
    layout->addLayout(core::buttonRow({cmdAddSupplier}));
    return outer;
}

void frmTelDir::showPage(int index) {
    SSTab1->setCurrentIndex(index);
}

std::optional<EntryKind> frmTelDir::kindAt(const QTreeWidgetItem* item) {
    if (!item) return std::nullopt;
    const QVariant kind = item->data(0, KindRole);
    if (!kind.isValid()) return std::nullopt;
    return EntryKind(kind.toInt());
}

void frmTelDir::fill(RecordList* list, const suppliers::DirectoryRows& rows) {
    list->clearRecords();
    list->beginFill();
    for (const auto& r : rows)
        list->addRecord(r.id, {r.name, r.number})->setData(0, KindRole, int(r.kind));
    if (rows.empty()) list->addRecord(0, {suppliers::noMatchingEntries()});
    list->endFill();
    if (list == ListView1) refreshDeleteButton();
}

void frmTelDir::run(RecordList* list, const std::function<suppliers::DirectoryRows()>& search) {
    core::guarded(
        windowTitle(), [&] { fill(list, search()); }, this);
}

void frmTelDir::refreshDeleteButton() {
    cmdDelete->setEnabled(kindAt(ListView1->topLevelItem(0)).has_value());
}

void frmTelDir::followStrip(const QString& text) {
    // Following the typing is no click: the list keeps what was typed.
    if (const auto tab = suppliers::letterTabFor(text)) tabLetters->setCurrentIndex(*tab + 1);
}

void frmTelDir::searchPeople() {
    const QString text = txtSurname->text();
    run(ListView1, [&] { return suppliers::findPeople(core::db(), text); });
    followStrip(text);
}

void frmTelDir::searchByName() {
    const QString text = txtCompany->text();
    run(ListView2, [&] { return suppliers::findSuppliers(core::db(), text); });
    followStrip(text);
}

qint64 frmTelDir::chosenService() const {
    if (cboService->currentText().isEmpty()) return core::NoComboId;
    return core::comboId(cboService);
}

void frmTelDir::searchByService() {
    const QString text = txtCompany2->text();
    const qint64 service = chosenService();
    if (service == core::NoComboId) {
        if (!text.isEmpty())
            core::msgbox(suppliers::serviceFirstOnChange(), {}, MsgButtons::Ok, MsgIcon::None,
                         this);
        return;
    }
    run(ListView4, [&] { return suppliers::findSuppliersByService(core::db(), service, text); });
    followStrip(text);
}

bool frmTelDir::eventFilter(QObject* watched, QEvent* event) {
    // A letter typed before a service is chosen is refused at once, and goes nowhere.
    if (watched == txtCompany2 && event->type() == QEvent::KeyPress) {
        const QString typed = static_cast<QKeyEvent*>(event)->text();
        if (!typed.isEmpty() && typed.at(0).isPrint() && chosenService() == core::NoComboId) {
            core::msgbox(suppliers::serviceFirstOnKey(), {}, MsgButtons::Ok, MsgIcon::None, this);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void frmTelDir::serviceChosen() {
    const qint64 service = chosenService();
    if (service == core::NoComboId) return;
    const QSignalBlocker quiet(txtCompany2);
    txtCompany2->clear();
    run(ListView4, [&] { return suppliers::findSuppliersByService(core::db(), service, {}); });
}

void frmTelDir::letterClicked(int tab) {
    if (tab < 0) return;
    const QString text = suppliers::letterTabText(tabLetters->tabText(tab));
    if (SSTab1->currentIndex() == 0) {
        run(ListView1, [&] { return suppliers::findPeople(core::db(), text); });
    } else if (SSTab2->currentIndex() == 0) {
        run(ListView2, [&] { return suppliers::findSuppliers(core::db(), text); });
    } else {
        const qint64 service = chosenService();
        if (service == core::NoComboId) {
            core::msgbox(suppliers::serviceFirstOnLetter(), {}, MsgButtons::Ok, MsgIcon::None,
                         this);
            return;
        }
        run(ListView4,
            [&] { return suppliers::findSuppliersByService(core::db(), service, text); });
    }
}

void frmTelDir::pageChanged(int index) {
    // The boxes of the page left are emptied, and its list shows everyone again.
    if (page_ == 0 && index != 0) txtSurname->clear();
    if (page_ == 1) {
        txtCompany->clear();
        const QSignalBlocker quiet(txtCompany2);
        txtCompany2->clear();
    }
    page_ = index;
}

void frmTelDir::openPerson(QTreeWidgetItem* item) {
    const auto kind = kindAt(item);
    if (!kind) return;
    const qint64 id = RecordList::idAt(item);
    if (*kind == EntryKind::Employee) {
        openEmployee(QString::number(id));
        return;
    }
    if (*kind == EntryKind::Contact) {
        const auto c = suppliers::editStored<frmAddPerson>(
            this, windowTitle(), "contact", id, &suppliers::loadedContactRow,
            &suppliers::loadPersonContact, &suppliers::updatePersonContact);
        if (!c) return;
        item->setText(0, c->surname.trimmed() + ", " + c->firstname.trimmed());
        item->setText(1, c->phone.trimmed());
    } else {
        const auto c = suppliers::editStored<frmAddCompany>(
            this, windowTitle(), "contact", id, &suppliers::loadedContactRow,
            &suppliers::loadCompanyContact, &suppliers::updateCompanyContact);
        if (!c) return;
        item->setText(0, c->company.trimmed());
        item->setText(1, c->phone.trimmed());
    }
}

void frmTelDir::openSupplier(RecordList* list, QTreeWidgetItem* item) {
    if (!kindAt(item)) return;
    auto* screen = new frmaddsupplier;
    screen->setWindowTitle("View/Edit Supplier details");
    screen->addpos(list == ListView2 ? "listview2" : "listview4", this);
    screen->ischild = true;
    screen->load(RecordList::idAt(item));
    core::showScreen(screen);
}

void frmTelDir::supplierSaved(const QString& position, qint64 id, const QString& name,
                              const QString& phone) {
    bool renewed = false;
    for (RecordList* list : {ListView2, ListView4})
        if (QTreeWidgetItem* row = list->findRecord(id); row && kindAt(row)) {
            row->setText(0, name);
            row->setText(1, phone);
            renewed = true;
        }
    if (renewed || position == "listview2" || position == "listview4") return;
    for (RecordList* list : {ListView2, ListView4}) {
        if (!kindAt(list->topLevelItem(0))) list->clearRecords();
        list->addRecord(id, {name, phone})->setData(0, KindRole, int(EntryKind::Supplier));
    }
}

void frmTelDir::listEveryone() {
    // The list is loaded again in full, so the new entry is seen whatever was typed before.
    const QSignalBlocker quiet(txtSurname);
    txtSurname->clear();
    searchPeople();
}

void frmTelDir::addContact() {
    frmAddPerson dialog(this);
    core::showModal(dialog);
    if (!dialog.ok) return;
    if (core::guarded(
            windowTitle(), [&] { suppliers::addPersonContact(core::db(), dialog.contact()); },
            this))
        listEveryone();
}

void frmTelDir::addCompany() {
    frmAddCompany dialog(this);
    core::showModal(dialog);
    if (!dialog.ok) return;
    if (core::guarded(
            windowTitle(), [&] { suppliers::addCompanyContact(core::db(), dialog.contact()); },
            this))
        listEveryone();
}

void frmTelDir::addSupplier() {
    auto* screen = new frmaddsupplier;
    screen->ischild = true;
    screen->addpos({}, this);
    core::showScreen(screen);
}

void frmTelDir::deletePerson() {
    QTreeWidgetItem* item = ListView1->currentItem();
    const auto kind = kindAt(item);
    if (!kind) return;
    if (*kind == EntryKind::Employee) {
        core::msgbox(suppliers::employeeDeleteRefusal(), {}, MsgButtons::Ok, MsgIcon::None, this);
        return;
    }
    if (core::msgbox(suppliers::deleteQuestion(item->text(0)), "Confirm Delete", MsgButtons::YesNo,
                     MsgIcon::Question, MsgAnswer::No, this) != MsgAnswer::Yes)
        return;
    const qint64 id = RecordList::idAt(item);
    if (!core::guarded(
            windowTitle(), [&] { suppliers::deleteContact(core::db(), id); }, this))
        return;
    delete item;
    if (ListView1->topLevelItemCount() == 0) fill(ListView1, {});
    refreshDeleteButton();
}

void frmTelDir::deleteSupplier(RecordList* list) {
    QTreeWidgetItem* item = list->currentItem();
    if (!kindAt(item)) return;
    if (core::msgbox(suppliers::deleteQuestion(item->text(0)), {}, MsgButtons::YesNo,
                     MsgIcon::Question, MsgAnswer::No, this) != MsgAnswer::Yes)
        return;
    const qint64 id = RecordList::idAt(item);
    if (!core::guarded(
            windowTitle(), [&] { suppliers::deleteSupplier(core::db(), id); }, this))
        return;
    for (RecordList* l : {ListView2, ListView4}) {
        delete l->findRecord(id);
        if (l->topLevelItemCount() == 0) fill(l, {});
    }
}
