#include "session/namedpreview.h"

#include "platform/desktop/desktop.h"
#include "platform/printing/frmpreview.h"
#include "platform/printing/printpreview.h"
#include "platform/printing/vsprinter.h"
#include "session/hiddennames.h"
#include "session/session.h"

bool PreviewWithNames(const std::function<VSPrinter()>& make, QWidget* parent) {
    bool hidden = Session().HidePatientNames;
    frmpreview form(make().Document(), parent);
    FollowHiddenNames(&form, [&](bool hides) {
        if (hides == hidden)
            return;
        hidden = hides;
        printing::Document document = make().Document();
        document.setup = form.vp->Document().setup;
        form.vp->ShowDocument(document);
    });
    ShowModal(form);
    return form.HasPrinted();
}
