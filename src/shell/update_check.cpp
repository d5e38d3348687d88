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
    const QPointer<QWidget> over = owner;
    const bool owned = owner != nullptr;
    const QString result = fetch();
    wait_(over);
    // The program may have been ended meanwhile.
    if (!owned || over) {
        const QPointer<frmHELPCHECKUPDATE> form = new frmHELPCHECKUPDATE(over);
        form->tell(updateOutcome(libTxt.VersionNumber, result), result, closeCaption);
        form->exec();
        delete form;
    }
    net.Cancel();
}

}  // namespace velorama
