#include "personrows.h"

namespace testsupport {

core::Fields fullPersonRow(qint64 company, qint64 department, qint64 position, qint64 location) {
    return {
        {"firstnames", "Mary"},
        {"surname", "O'Neil"},
        {"Title", "Mrs "},
        {"DOB", QDate(1970, 3, 14)},
        {"MaritalStatus", "Married"},
        {"Dependents", "2"},
        {"NI_Number", "AB-12-34-56-C"},
        {"address1", "1 Quay Street"},
        {"address2", "Harbourside"},
        {"address3", "Bristol"},
        {"PostCode", "BS1 4XY"},
        {"phone", "0117 555 0101"},
        {"NOK1_Name", "John O'Neil"},
        {"NOK1_Relationship", "Husband"},
        {"NOK1_Address", "1 Quay Street"},
        {"NOK1_Home_PH", "0117 555 0101"},
        {"NOK1_Mobile_PH", "07700 900001"},
        {"NOK2_Name", "Ann Smith"},
        {"NOK2_Relationship", "Sister"},
        {"NOK2_Address", "2 Hill Road"},
        {"NOK2_Home_PH", "0117 555 0202"},
        {"NOK2_Mobile_PH", "07700 900002"},
        {"startdate", QDate(2015, 6, 1)},
        {"Employment_Type", "Permanent"},
        {"Recruitment", "Agency"},
        {"EthOrigin", "White - British"},
        {"Nationality", "British"},
        {"Location_ID", location},
        {"Department_ID", department},
        {"Position_ID", position},
        {"Company_ID", company},
        {"salary", "30000.5"},
        {"JHDate", QDate(2019, 1, 7)},
        {"jhnote", "Promoted"},
        {"firstaider", 1},
        {"firstaiderdate", QDate(2018, 9, 30)},
        {"MedCover", "Emp + family"},
        {"MedCoCost", "45.25"},
        {"MedEmpCost", "12.5"},
        {"PensionEF", QDate(2016, 1, 1)},
        {"CompCon", "5.5"},
        {"EmpCon", "3"},
        {"blncompfig", 1},
        {"blnempfig", 0},
        {"LifeCover", "Yes"},
        {"PHICover", "Refused"},
        {"LifeLevel", "3*"},
        {"PHILevel", "75 %"},
        {"BankName", "Northern Bank"},
        {"BankADD1", "High Street"},
        {"BankADD2", "Centre"},
        {"BankADD3", "Leeds"},
        {"BankPC", "LS1 1AA"},
        {"AccName", "M O'Neil"},
        {"AccNo", "12345678"},
        {"SortCode", "12-34-56"},
        {"IsManager", 1},
        {"Line_Manager", "Brown, Peter"},
        {"FullTime", "Full Time"},
        {"EmpHours", "37.5"},
        {"DaysHoliday", "25"},
        {"AllocationDate", QDate(2016, 2, 1)},
        {"DeAllocationDate", QDate(2020, 2, 1)},
        {"RegNo", "AB12 CDE"},
        {"CarGrade", "B"},
        {"CarCategory", "Benefit Car"},
        {"CarTrade", "UP"},
        {"CarTradeMoney", "150"},
        {"PetrolAllowance", "80.75"},
        {"CarAllowance", "300"},
        {"extno", "2314"},
        {"HasLeft", 1},
        {"finishdate", QDate(2024, 5, 31)},
        {"ExitIntDate", QDate(2024, 5, 30)},
        {"FinReason", "Relocation"},
        {"ExitInt", "Brown, Peter"},
        {"ExitNotes", "Would return"},
        {"blndeleted", 0},
    };
}

QStringList personSnapshot(core::Db& db, qint64 personId) {
    const auto r = db.row("SELECT * FROM Person WHERE Person_ID = ?", {personId});
    if (!r) return {};
    QStringList out;
    for (int i = 0; i < r->count(); ++i) {
        QString value = r->isNull(i) ? QStringLiteral("<NULL>") : r->value(i).toString();
        bool numeric = false;
        const double d = value.toDouble(&numeric);
        if (numeric) value = QString::number(d);
        out << r->fieldName(i).toLower() + "=" + value;
    }
    return out;
}

} // namespace testsupport
