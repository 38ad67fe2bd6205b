#pragma once

#include "programmes.h"

#include <QString>

namespace training {

// What OK finds wrong with a programme before saving it, "" when nothing. A date box holding
// text that is no date counts as empty, as leaving the box would have emptied it; a title
// that stands for no course counts as no title. Equal start and end dates pass.
QString checkProgramme(const ProgrammeText& programme);

} // namespace training
