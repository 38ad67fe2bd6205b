#include "commands.h"

#include "frmtraining.h"
#include "frmtrainrep.h"
#include "mdimain.h"
#include "traininglist.h"

namespace {

// The programme list's caption is its mode.
void showProgrammes(mdiMain& window, const QString& caption) {
    auto* list = new TrainingList;
    list->setWindowTitle(caption);
    list->load();
    window.addScreen(list);
}

} // namespace

void registerTrainingCommands(mdiMain& w) {
    w.setCommand("mnuNewProgramme", [&w] { w.addScreen(new frmtraining); });
    w.setCommand("mnuTrainingEdit", [&w] { showProgrammes(w, "Edit Training Programme"); });
    w.setCommand("mnuDelete", [&w] { showProgrammes(w, "Delete Training Programme"); });
    w.setCommand("mnuReportsTraining", [&w] {
        auto* report = new frmTrainRep;
        report->loadall();
        w.addScreen(report);
    });
}
