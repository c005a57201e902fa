#include "tests/followup/notefixture.h"

#include "followup/frmsnotetype.h"
#include "platform/controls/ctlist.h"

#include <QPushButton>

void NoteFixture::expectType(int row, const std::function<void()>& meanwhile) {
    desk.expectForm("frmSNoteType", [row, meanwhile](QDialog& dialog) {
        auto& form = dynamic_cast<frmSNoteType&>(dialog);
        form.List1->SelectRow(row);
        meanwhile();
        form.cmdOk->click();
    });
}
