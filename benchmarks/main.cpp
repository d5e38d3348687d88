#include "contest.h"
#include "machine.h"
#include "table.h"
#include "works.h"
#include "world.h"

#include <QApplication>
#include <QFile>

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace velorama::bench {
namespace {

struct Work {
    const char* word;
    int rows;
    Contest (*make)();
};

constexpr Work works[] = {
    {"thumbnails", 2, wallpaperThumbnails},
    {"camera", 2, cameraThumbnails},
    {"slide", 2, slideLoading},
    {"tick", 1, tickWithSlideReady},
    {"fade", 1, fadeStep},
    {"addall", 1, addingAll},
    {"start", 1, startOfProgram},
    {"memory", 1, memoryOfSlides},
    {"music", 1, playingMusic},
    {"show", 2, wholeShow},
    {"sound", 1, firstSound},
    {"longshow", 1, memoryOfLongShow},
    {"webalbum", 1, pagesOfWebAlbum},
    {"album", 1, openingAlbum},
    {"save", 1, savingAlbum},
    {"resize", 2, resizingMainWindow},
    {"webcopy", 1, webAlbumAgainstCopying},
    {"webgallery", 1, webAlbumAgainstGallery},
    {"again", 1, wallpapersAgain},
    {"cameraagain", 1, cameraPicturesAgain},
    {"keeping", 1, listingWithCache},
    {"addlisted", 1, addingWhatIsListed},
    {"memorymany", 1, memoryOfManyPictures},
    {"answers", 1, answersDuringListing},
    {"startagain", 1, startWithAlbumAgain},
    {"showserver", 1, serverOfShow},
    {"viewers", 2, secondVisit},
    {"manyagain", 1, listingHundredThousandAgain},
    {"addmany", 1, addingHundredThousand},
    {"bmp", 1, bmpLoading},
    {"webcall", 1, webAlbumByCall},
    {"play", 1, firstSlideOfPlay},
};

constexpr int quickRounds = 3;

struct Wish {
    bool quick = false;
    QStringList rows;

    bool wants(const Work& work, int number) const {
        return rows.isEmpty() || rows.contains(QLatin1String(work.word)) ||
               rows.contains(QString::number(number));
    }
};

/// Runs a work whose first row has the number `first`, with those opponents only that are asked
/// for.
void runWork(const Work& work, int first, const Wish& wish) {
    std::vector<int> numbers;
    for (int number = first; number < first + work.rows; ++number) {
        if (wish.wants(work, number)) {
            numbers.push_back(number);
        }
    }
    if (numbers.empty()) {
        return;
    }
    std::fprintf(stderr, "measuring %s ...\n", work.word);
    Contest contest = work.make();
    std::vector<Opponent> asked;
    asked.reserve(numbers.size());
    for (const int number : numbers) {
        asked.push_back(contest.against.at(static_cast<size_t>(number - first)));
    }
    contest.against = std::move(asked);
    const int rounds = wish.quick ? std::min(quickRounds, contest.rounds) : contest.rounds;
    const std::vector<Row> rows = run(contest, rounds);
    for (size_t i = 0; i < rows.size(); ++i) {
        printRow(numbers[i], rows[i]);
    }
}

void runAll(const Wish& wish) {
    const double before = machineLoad();
    printHead();
    int first = 1;
    for (const Work& work : works) {
        runWork(work, first, wish);
        first += work.rows;
    }
    const QuietRecord record = quietRecord();
    std::printf(
        "\nMedians of rounds in turn; a ratio below 1 is for the program. Load before: %.2f; "
        "begun while other programs were at work: %d of %d measurements.\n",
        before, record.inVain, record.asked);
}

int usage() {
    std::fprintf(stderr, "usage: velorama_bench [--quick] [row number or word ...]\nwords:");
    for (const Work& work : works) {
        std::fprintf(stderr, " %s", work.word);
    }
    std::fprintf(stderr, "\n");
    return 2;
}

bool isKnown(const QString& row) {
    int count = 0;
    for (const Work& work : works) {
        if (row == QLatin1String(work.word)) {
            return true;
        }
        count += work.rows;
    }
    return row.toInt() >= 1 && row.toInt() <= count;
}

std::optional<Wish> parsed(const QStringList& arguments) {
    Wish wish;
    for (const QString& argument : arguments) {
        if (argument == QLatin1String("--quick")) {
            wish.quick = true;
        } else if (isKnown(argument)) {
            wish.rows.append(argument);
        } else {
            return std::nullopt;
        }
    }
    return wish;
}

/// What the music rows run as a process of its own; nothing if that was not asked for.
std::optional<int> musicProcess(int argc, char** argv) {
    const struct {
        const char* option;
        int (*body)(const QString& file);
    } bodies[] = {{"--play-track", playTrack},
                  {"--first-sound", timeFirstSound},
                  {"--first-plain-sound", timeFirstPlainSound}};
    for (const auto& each : bodies) {
        if (argc == 3 && std::strcmp(argv[1], each.option) == 0) {
            return each.body(QFile::decodeName(argv[2]));
        }
    }
    return std::nullopt;
}

}  // namespace
}  // namespace velorama::bench

int main(int argc, char** argv) {
    using namespace velorama::bench;
    setvbuf(stdout, nullptr, _IOLBF, 0);
    if (const auto result = musicProcess(argc, argv)) {
        return *result;
    }
    useScreenInMemory();
    QApplication app(argc, argv);
    const World world;
    const QStringList arguments = QApplication::arguments().mid(1);
    if (arguments.size() == 2 && arguments[0] == QLatin1String("--hold-slides")) {
        return holdSlides(arguments[1]);
    }
    if (arguments.size() == 3 && arguments[0] == QLatin1String("--hold-show")) {
        return holdShow(arguments[1], arguments[2]);
    }
    if (arguments.size() == 3 && arguments[0] == QLatin1String("--hold-pictures")) {
        return holdPictures(arguments[1], arguments[2]);
    }
    if (arguments.size() == 3 && arguments[0] == QLatin1String("--list-pictures")) {
        return listPictures(arguments[1], arguments[2]);
    }
    const auto wish = parsed(arguments);
    if (!wish) {
        return usage();
    }
    runAll(*wish);
    return 0;
}
