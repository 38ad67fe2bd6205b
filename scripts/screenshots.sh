#!/usr/bin/env bash
# Takes the README's pictures again, at 1280x800, from a demo installation of its own.
# Usage: scripts/screenshots.sh   (after scripts/build.sh)
set -euo pipefail
cd "$(dirname "$0")/.."
out=docs/screenshots
demo="$(mktemp -d)"
trap 'rm -rf "$demo"' EXIT
args=(--settings "$demo/quillorne.ini" --data "$demo" --demo 250)
# picture = menu items opened in turn
shots=(
  "main-window="
  "companies=mnuCompanyDisplayAll"
  "company=mnuCompanyNew"
  "employee=mnuEmployeeNew"
  "employee-search=mnuEmployeeSearch"
  "employees=mnuEmployeeDisplayAll"
  "first-aiders=mnupersonaiders"
  "delete-department=mnuDepartmentDelete"
  "training-programme=mnuNewProgramme"
  "training-list=mnuTrainingEdit"
  "petty-cash=mnuPettyCash"
  "petty-cash-report=mnuRepPetty"
  "attendance=mnuEmployeeSick"
  "holiday-report=mnuReportsHoliday"
  "absence-report=mnuReportAbsence"
  "telephone-directory=mnuTel"
  "find-supplier=mnuSuppliersFind"
  "add-call=mnuHelpDeskAddItem"
  "calls=mnuViewAllCalls"
  "add-software=mnuSoftware"
  "add-computer=mnuComputerAdd"
  "edit-computer=mnuComputerEdit"
  "add-printer=mnuAssetPrinterAdd"
  "printers=mnuAssetsPrinterEdit"
  "add-user=mnuSecurityAddUser"
  "change-password=mnuSecurityChangePassword"
  "backup=mnuBackup"
  "options=mnuToolsOptions"
)
for shot in "${shots[@]}"; do
  name="${shot%%=*}"
  opens=()
  for item in ${shot#*=}; do opens+=(--open "$item"); done
  xvfb-run -a -s "-screen 0 1280x800x24" build/src/app/quillorne "${args[@]}" \
    --screenshot "$out/$name.png" "${opens[@]}"
done
