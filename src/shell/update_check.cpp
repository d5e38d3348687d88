#include "shell/update_check.h"

#include "core/lib_txt.h"
#include "platform/numbers.h"
#include "shell/frm_helpcheckupdate.h"

#include <QGuiApplication>
#include <QPointer>

namespace velorama {

UpdateOutcome updateOutcome(const QString& current, const QString& result) {
    if (result.isEmpty()) {
        return UpdateOutcome::NoAnswer;
    }
    return numericValue(current) < numericValue(result) ? UpdateOutcome::Newer
                                                        : UpdateOutcome::Latest;
}

QString UpdateCheck::fetch() {
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    const QString result = netCHECKUPDATE_.OpenURL(libTxt.UpdateUrl);
    QGuiApplication::restoreOverrideCursor();
    // An error page of the server is no answer.
    return result.contains(QLatin1String("Error")) ? QString() : result;
}

void UpdateCheck::run(QWidget* owner, const QString& closeCaption) {
    HttpFetch& net = netCHECKUPDATE_;
    // The program may be ended while this waits: its windows are closed then, and nothing is to
    // come up any more.
    const auto isEnded = [over = QPointer<QWidget>(owner), owned = owner != nullptr,
                          visible = owner != nullptr && owner->isVisible()] {
        return owned && (!over || (visible && !over->isVisible()));
    };
    const QString result = fetch();
    if (!isEnded()) {
        wait_(owner);
    }
    if (!isEnded()) {
        const QPointer<frmHELPCHECKUPDATE> form = new frmHELPCHECKUPDATE(owner);
        form->tell(updateOutcome(libTxt.VersionNumber, result), result, closeCaption);
        form->exec();
        delete form;
    }
    net.Cancel();
}

}  // namespace velorama
