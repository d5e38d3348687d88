#include "calls/run_call.h"

#include "calls/call_output.h"
#include "calls/check_call.h"
#include "calls/help_text.h"
#include "calls/play_call.h"
#include "calls/settings_calls.h"
#include "calls/wallpaper_call.h"
#include "calls/web_album_call.h"

namespace velorama {
namespace {

/// One overload a call.
struct Runner {
    CallResult operator()(const HelpCall&) const { return printText(callHelp()); }
    CallResult operator()(const VersionCall&) const {
        return printText(QStringLiteral("velorama " VELORAMA_VERSION "\n"));
    }
    CallResult operator()(const WrongCall& call) const { return wrongCall(call.message); }
    CallResult operator()(const PlayCall& call) const { return run(call, program); }
    CallResult operator()(const ExportSettingsCall& call) const { return run(call); }
    CallResult operator()(const ImportSettingsCall& call) const { return run(call, program); }
    CallResult operator()(const WebAlbumCall& call) const { return run(call, program); }
    CallResult operator()(const CheckCall& call) const { return run(call, program); }
    CallResult operator()(const WallpaperCall& call) const { return run(call, program); }

    char* program;
};

}  // namespace

CallResult runCall(const Call& call, char* program) {
    // What libraries remark is for developers; a script reads the lines of the call.
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
        if (type == QtFatalMsg) {
            notDone(text);
        }
    });
    return std::visit(Runner{program}, call);
}

}  // namespace velorama
