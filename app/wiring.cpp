#include "app/wiring.h"

#include "appointments/serieswork.h"
#include "appointments/waitbar.h"
#include "followup/frmboard.h"
#include "followup/frmcheckedin.h"
#include "shell/mdisched.h"

void WireMainWindow(mdisched& window) {
    QObject::connect(&window, &mdisched::CheckedInRequested, &window, [&window] { frmCheckedIn::Open(&window); });
    QObject::connect(&window, &mdisched::DatabaseOpenedAgain, &window, &frmCheckedIn::ReloadIfOpen);
    QObject::connect(&window, &mdisched::BoardRequested, &window, [&window] { frmboard::Open(window, &window); });
    QObject::connect(&window, &mdisched::DatabaseOpenedAgain, &window, [&window] { frmboard::OpenAgain(window); });
    auto* waitBar = new WaitBar(window, &window);
    window.AddBar(waitBar);
    QObject::connect(waitBar, &WaitBar::FocusGivenBack, &window, [&window] {
        if (window.ShownView() != nullptr)
            window.ShownView()->setFocus();
    });
    QObject::connect(&window, &mdisched::DatabaseOpenedAgain, waitBar, &WaitBar::Forget);
    const auto offerRest = [&window] { OfferCutOffSeries([&window] { window.cycledate(2); }); };
    QObject::connect(&window, &mdisched::ViewOpened, &window, offerRest, Qt::SingleShotConnection);
}
