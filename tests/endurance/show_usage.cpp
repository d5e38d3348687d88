#include "endurance/show_usage.h"

#include <QDir>
#include <QFile>
#include <QThread>

#include <xcb/res.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <numeric>

namespace velorama::endurance {
namespace {

template <typename Reply>
using Owned = std::unique_ptr<Reply, decltype(&std::free)>;
template <typename Reply>
Owned<Reply> owned(Reply* reply) {
    return {reply, &std::free};
}

/// Not what it has of files: the share in libraries grows when another program ends that had them
/// too.
long memoryOf(const QString& process) {
    QFile file(process + QStringLiteral("/smaps_rollup"));
    long memory = -1;
    if (file.open(QIODevice::ReadOnly)) {
        memory = 0;
        for (const QByteArray& line : file.readAll().split('\n')) {
            if (line.startsWith("Pss_Anon:") || line.startsWith("Pss_Shmem:")) {
                memory += line.mid(line.indexOf(':') + 1).trimmed().split(' ').first().toLong();
            }
        }
    }
    return memory;
}

long entries(const QString& folder) {
    return static_cast<long>(
        QDir(folder).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size());
}

/// The X server's own count of what each client has (extension XRes 1.2).
class Screen {
public:
    explicit Screen(const QString& display)
        : connection_(xcb_connect(display.toLatin1().constData(), nullptr), &xcb_disconnect) {
        owned(
            xcb_res_query_version_reply(server(), xcb_res_query_version(server(), 1, 2), nullptr));
    }

    void look(qint64 process, Usage& usage) const {
        const xcb_res_client_id_spec_t all{0, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
        const auto ids = owned(xcb_res_query_client_ids_reply(
            server(), xcb_res_query_client_ids(server(), 1, &all), nullptr));
        if (!ids) {
            return;
        }
        for (auto id = xcb_res_query_client_ids_ids_iterator(ids.get()); id.rem > 0;
             xcb_res_client_id_value_next(&id)) {
            if (xcb_res_client_id_value_value_length(id.data) > 0 &&
                *xcb_res_client_id_value_value(id.data) == static_cast<uint32_t>(process)) {
                addClient(id.data->spec.client, usage);
            }
        }
    }

private:
    xcb_connection_t* server() const { return connection_.get(); }
    void addClient(uint32_t client, Usage& usage) const {
        const auto kinds = owned(xcb_res_query_client_resources_reply(
            server(), xcb_res_query_client_resources(server(), client), nullptr));
        if (kinds) {
            const xcb_res_type_t* const types = xcb_res_query_client_resources_types(kinds.get());
            for (uint32_t i = 0; i < kinds->num_types; ++i) {
                usage.screen[nameOf(types[i].resource_type)] += types[i].count;
            }
        }
        const auto bytes = owned(xcb_res_query_client_pixmap_bytes_reply(
            server(), xcb_res_query_client_pixmap_bytes(server(), client), nullptr));
        usage.pixmaps += bytes ? static_cast<long>(bytes->bytes / 1024) : 0;
    }
    QByteArray nameOf(xcb_atom_t atom) const {
        const auto name =
            owned(xcb_get_atom_name_reply(server(), xcb_get_atom_name(server(), atom), nullptr));
        return name ? QByteArray(xcb_get_atom_name_name(name.get()),
                                 xcb_get_atom_name_name_length(name.get()))
                    : QByteArray();
    }

    std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> connection_;
};

Usage usageOf(qint64 process, const Screen& screen) {
    const QString folder = QStringLiteral("/proc/%1").arg(process);
    Usage usage;
    usage.memory = memoryOf(folder);
    usage.handles = entries(folder + QStringLiteral("/fd"));
    usage.threads = entries(folder + QStringLiteral("/task"));
    screen.look(process, usage);
    return usage;
}

}  // namespace

long Usage::screenTotal() const {
    return std::accumulate(screen.begin(), screen.end(), 0L);
}

Usage leastUsage(qint64 process, const QString& display) {
    constexpr int looks = 40;
    constexpr unsigned pause = 50;  // milliseconds
    const Screen screen(display);
    Usage least = usageOf(process, screen);
    for (int i = 1; i < looks; ++i) {
        QThread::msleep(pause);
        const Usage now = usageOf(process, screen);
        least.memory = std::min(least.memory, now.memory);
        least.handles = std::min(least.handles, now.handles);
        least.threads = std::min(least.threads, now.threads);
        least.pixmaps = std::min(least.pixmaps, now.pixmaps);
        if (now.screenTotal() < least.screenTotal()) {
            least.screen = now.screen;
        }
    }
    return least;
}

}  // namespace velorama::endurance
