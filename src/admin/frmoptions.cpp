#include "frmoptions.h"

#include "combos.h"
#include "datebox.h"
#include "failure.h"
#include "messagebox.h"
#include "options.h"
#include "regional.h"
#include "salary_increase.h"
#include "screenbase.h"
#include "screenhost.h"
#include "session.h"
#include "widgetkit.h"

#include <QApplication>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

QLineEdit* numberBox(QWidget* parent, const char* name) {
    auto* box = new QLineEdit(parent);
    box->setObjectName(name);
    return box;
}

QGroupBox* frame(QWidget* parent, const QString& caption, QGridLayout*& grid) {
    auto* box = new QGroupBox(caption, parent);
    grid = new QGridLayout(box);
    return box;
}

} // namespace

frmOptions::frmOptions(QWidget* parent)
    : QWidget(parent) {
    setObjectName("frmOptions");
    setWindowTitle("Options");
    core::placeTopLeft(this);

    Text1 = numberBox(this, "Text1");
    Text4 = numberBox(this, "Text4");
    Text3 = numberBox(this, "Text3");
    Text2 = numberBox(this, "Text2");
    Text5 = new DateBox("Text5", this);
    Text6 = new DateBox("Text6", this);
    Text5->setWarnOnInvalid(true);
    Text6->setWarnOnInvalid(true);
    Combo1 = core::autoCompleteCombo(this, "Combo1");
    Combo2 = core::autoCompleteCombo(this, "Combo2");
    for (QComboBox* c : {Combo1, Combo2}) {
        c->addItems({"3", "6", "12", "18", "24", "36"});
        c->setCurrentIndex(-1); // no length until one is chosen
    }
    Combo3 = new QComboBox(this);
    Combo3->setObjectName("Combo3");
    Combo3->addItems({core::regional::UK, core::regional::US});
    cmdUpdate = core::makeButton(this, "Update Now", "cmdUpdate");
    cmdUpdate->setEnabled(false);
    cmdOK = core::makeButton(this, "OK", "cmdOK", true);
    cmdCancel = core::makeButton(this, "Cancel", "cmdCancel");

    QGridLayout* g = nullptr;
    auto* absence = frame(this, "Absence options", g);
    g->addWidget(new QLabel("No of days absence per year before notification"), 0, 0);
    g->addWidget(Text1, 0, 1);
    auto* tax = frame(this, "Tax", g);
    g->addWidget(new QLabel("Basic rate tax"), 0, 0);
    g->addWidget(Text4, 0, 1);
    auto* health = frame(this, "Health/Safety", g);
    const auto dateRow = [&](int row, const QString& caption, DateBox* date, QComboBox* length,
                             QLabel*& hint, const char* hintName) {
        g->addWidget(new QLabel(caption), row, 0);
        g->addWidget(date, row, 1);
        hint = new QLabel(this);
        hint->setObjectName(hintName);
        g->addWidget(hint, row, 2);
        g->addWidget(new QLabel("Valid for"), row, 3);
        g->addWidget(length, row, 4);
        g->addWidget(new QLabel("Mths"), row, 5);
    };
    dateRow(0, "PAT testing completed", Text5, Combo1, lblDateHint1, "lblDateHint1");
    dateRow(1, "Fire extinguishers tested", Text6, Combo2, lblDateHint2, "lblDateHint2");
    auto* backup = frame(this, "Backup ", g);
    g->addWidget(new QLabel("No of days without backing up before notification"), 0, 0);
    g->addWidget(Text3, 0, 1);
    auto* regionalFrame = frame(this, "Regional Settings", g);
    g->addWidget(new QLabel("Language"), 0, 0);
    g->addWidget(Combo3, 0, 1);
    auto* salary = frame(this, "Salary Increase", g);
    g->addWidget(new QLabel("% Increase"), 0, 0);
    g->addWidget(Text2, 0, 1);
    g->addWidget(cmdUpdate, 0, 2);

    auto* layout = new QVBoxLayout(this);
    for (QWidget* w : {absence, tax, health, backup, regionalFrame, salary})
        layout->addWidget(w);
    layout->addLayout(core::buttonRow({cmdOK, cmdCancel}));

    connect(Text2, &QLineEdit::textChanged, this, [this](const QString& text) {
        cmdUpdate->setEnabled(admin::parsePercent(text).has_value());
    });
    core::setScreenButtons(this, cmdOK, cmdCancel);
    connect(cmdUpdate, &QPushButton::clicked, this, [this] { updateNow(); });
    connect(cmdOK, &QPushButton::clicked, this, [this] { save(); });
    connect(cmdCancel, &QPushButton::clicked, this, &QWidget::close);
    load();
}

void frmOptions::load() {
    const auto& s = core::session();
    show({QString::number(s.NoDaysAbsence), QString::number(s.baserate),
          s.pattest.isValid() ? core::formatDate(s.pattest) : QString(),
          s.patlength != 0 ? QString::number(s.patlength) : QString(),
          s.fireexttest.isValid() ? core::formatDate(s.fireexttest) : QString(),
          s.firelength != 0 ? QString::number(s.firelength) : QString(),
          QString::number(s.nodaysbackup), s.language});
    core::guarded(
        windowTitle(), [&] { loaded_ = admin::loadedOptionsRow(core::db()); }, this);
}

void frmOptions::show(const admin::OptionsInput& v) {
    Text1->setText(v.daysAbsence);
    Text4->setText(v.baseRate);
    Text3->setText(v.daysBackup);
    Text5->setText(v.patTest);
    Text6->setText(v.fireTest);
    Combo1->setCurrentIndex(-1);
    Combo2->setCurrentIndex(-1);
    Combo1->setEditText(v.patLength);
    Combo2->setEditText(v.fireLength);
    Combo3->setCurrentIndex(Combo3->findText(v.language));
    const bool us = core::regional::isUS(core::session().language);
    Text4->setEnabled(!us);
    const QString hint = us ? QStringLiteral("MM/DD/YYYY") : QStringLiteral("DD/MM/YYYY");
    lblDateHint1->setText(hint);
    lblDateHint2->setText(hint);
}

bool frmOptions::save() {
    const admin::OptionsInput in{Text1->text(),         Text4->text(),        Text5->text(),
                                 Combo1->currentText(), Text6->text(),        Combo2->currentText(),
                                 Text3->text(),         Combo3->currentText()};
    const admin::OptionsRefusal refusal = admin::checkOptions(in);
    switch (refusal.field) {
    case admin::OptionsField::None:
        break;
    case admin::OptionsField::DaysBackup:
        core::msgbox(refusal.message, {}, core::MsgButtons::Ok, core::MsgIcon::None, this);
        Text3->setFocus();
        return false;
    case admin::OptionsField::DaysAbsence:
        core::msgbox(refusal.message, {}, core::MsgButtons::Ok, core::MsgIcon::None, this);
        Text1->clear();
        Text1->setFocus();
        return false;
    case admin::OptionsField::PatTest:
    case admin::OptionsField::FireTest:
        core::showdateformat();
        (refusal.field == admin::OptionsField::PatTest ? Text5 : Text6)->lineEdit()->setFocus();
        return false;
    case admin::OptionsField::BaseRate:
    case admin::OptionsField::PatLength:
    case admin::OptionsField::FireLength:
        core::msgbox(refusal.message, {}, core::MsgButtons::Ok, core::MsgIcon::None, this);
        (refusal.field == admin::OptionsField::BaseRate    ? static_cast<QWidget*>(Text4)
         : refusal.field == admin::OptionsField::PatLength ? Combo1
                                                           : Combo2)
            ->setFocus();
        return false;
    }
    bool changedMeanwhile = false;
    const bool saved = core::guarded(
        windowTitle(),
        [&] {
            try {
                admin::saveOptions(core::db(), in, loaded_);
            } catch (const core::RowChanged&) {
                changedMeanwhile = true;
            }
        },
        this);
    if (changedMeanwhile) {
        if (core::offerReload("set of options", this)) {
            core::guarded(
                windowTitle(),
                [&] {
                    show(admin::readOptions(core::db()));
                    loaded_ = admin::loadedOptionsRow(core::db());
                },
                this);
        }
        return false;
    }
    if (!saved) return false;
    close();
    return true;
}

int frmOptions::updateNow() {
    const QString pct = Text2->text().trimmed();
    if (!admin::parsePercent(pct)) return 0;
    if (core::msgbox(admin::salaryIncreaseQuestion(pct), {}, core::MsgButtons::YesNo,
                     core::MsgIcon::None, core::MsgAnswer::No, this) != core::MsgAnswer::Yes)
        return 0;
    int updated = 0;
    {
        QProgressDialog progress("Updating salaries...", QString(), 0, 0, this);
        progress.setWindowModality(Qt::WindowModal);
        progress.setMinimumDuration(0);
        progress.show();
        QApplication::processEvents();
        if (!core::guarded(
                windowTitle(),
                [&] { updated = admin::increaseSalaries(core::db(), pct, QDate::currentDate()); },
                this))
            return 0;
    }
    Text2->clear();
    core::msgbox(QStringLiteral("%1 records updated").arg(updated), {}, core::MsgButtons::Ok,
                 core::MsgIcon::None, this);
    return updated;
}
