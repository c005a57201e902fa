#include "data/codes.h"

#include <algorithm>

bool IsPatientRow(int code) {
    return std::find(ncolor::PatientRows.begin(), ncolor::PatientRows.end(), code) != ncolor::PatientRows.end();
}
