#include "calls/option_table.h"

namespace velorama {
namespace {

struct Row {
    CallKind call;
    const char* name;
    const char* value;
    const char* help;
    bool leads = false;
    bool takesMany = false;
};

constexpr Row rows[] = {
    {CallKind::Play, "play", "ALBUM", "Show an album over the whole screen.", true},
    {CallKind::Play, "screen", "N", "The screen, counted from 1, else the first."},
    {CallKind::Play, "interval", "SECONDS", "Time of a slide, 0.1 to 86400."},
    {CallKind::Play, "music", "FILE...", "Music to play instead of the music list.", false, true},
    {CallKind::Play, "once", "", "End after the last slide."},
    {CallKind::Play, "lock", "",
     "No key and no pointer reaches the show, only a\n"
     "signal of the system ends it."},
    {CallKind::WebAlbum, "web-album", "ALBUM", "Write an album as web pages.", true},
    {CallKind::WebAlbum, "to", "FOLDER",
     "Where they go: FOLDER/index1.html is the first.\n"
     "The folder is made if need be; a web album in it\n"
     "is written over, other files are not."},
    {CallKind::WebAlbum, "title", "TEXT", "Title of the pages, else the album's name."},
    {CallKind::WebAlbum, "photo-size", "N", "Size of a photo in pixels, 100 to 3000."},
    {CallKind::WebAlbum, "thumbnail-size", "N", "Size of a thumbnail in pixels, 10 to 2000."},
    {CallKind::WebAlbum, "colours", "LIST",
     "One or more of page=, text=, bar=, title-bar= and\n"
     "title-bar-text=, with commas between them and\n"
     "#rrggbb or a name such as navy behind each.\n"
     "What is not said is as the window had it last."},
    {CallKind::Check, "check", "ALBUM",
     "List an album's slides and how each was found: ok,\n"
     "drive (by the drives file), case (by other letter\n"
     "case or slashes), missing, or lost (its file is\n"
     "there, but it counts as the rest of the missing\n"
     "path before it). The last two give exit status 1.",
     true},
    {CallKind::Check, "json", "", "The same for scripts."},
    {CallKind::Wallpaper, "wallpaper", "FILE", "Make a picture the wallpaper of the desktop.",
     true},
    {CallKind::ExportSettings, "export-settings", "FILE",
     "Write settings and lists as a registry text,\n"
     "version 5.00, in UTF-16.",
     true},
    {CallKind::ExportSettings, "utf8", "", "Write it in UTF-8."},
    {CallKind::ImportSettings, "import-settings", "FILE",
     "Take over all that a registry text says, or\n"
     "nothing of it.",
     true},
    {CallKind::Help, "help", "", "Print this text.", true},
    {CallKind::Version, "version", "", "Print the program's version.", true},
};

}  // namespace

const std::vector<OptionRow>& optionTable() {
    static const std::vector<OptionRow> table = [] {
        std::vector<OptionRow> made;
        for (const Row& row : rows) {
            made.push_back({row.call, QLatin1String(row.name), QLatin1String(row.value),
                            QLatin1String(row.help), row.leads, row.takesMany});
        }
        return made;
    }();
    return table;
}

}  // namespace velorama
