// SPDX-License-Identifier: GPL-3.0-or-later
#include "watcher.h"

#include <xcb/damage.h>
#include <xcb/xcb.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <stdexcept>
#include <string>
#include <string_view>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace bench {

namespace {

constexpr std::chrono::seconds kPatience(30);

struct Freed
{
    void operator()(void* reply) const { std::free(reply); }
};
template <typename Reply>
using Owned = std::unique_ptr<Reply, Freed>;

[[noreturn]] void runServer(int toldThrough)
{
    prctl(PR_SET_PDEATHSIG, SIGTERM); // a benchmark that dies leaves no server behind
    // It complains of each display that is taken.
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    dup2(nowhere, STDERR_FILENO);
    const std::string number = std::to_string(toldThrough);
    execlp("Xvfb", "Xvfb", "-displayfd", number.c_str(), "-screen", "0", "1280x800x24", "-nolisten", "tcp",
           "-noreset", nullptr);
    _exit(EXIT_FAILURE);
}

/// The line that the server writes; empty when it ends before.
QByteArray lineFrom(int pipe)
{
    QByteArray line;
    char letter = 0;
    while (read(pipe, &letter, 1) == 1 && letter != '\n')
        line += letter;
    return line;
}

} // namespace

Display::Display()
{
    std::array<int, 2> told{};
    if (pipe(told.data()) != 0)
        throw std::runtime_error("no pipe");
    m_server = fork();
    if (m_server == 0) {
        close(told[0]);
        runServer(told[1]);
    }
    close(told[1]);
    const QByteArray number = lineFrom(told[0]);
    close(told[0]);
    if (number.isEmpty()) {
        waitpid(m_server, nullptr, 0);
        throw std::runtime_error("Xvfb doesn't start");
    }
    m_name = ':' + number;
}

Display::~Display()
{
    kill(m_server, SIGTERM);
    waitpid(m_server, nullptr, 0);
}

struct Watcher::Private
{
    xcb_connection_t* connection = nullptr;
    xcb_window_t root = XCB_NONE;
    xcb_atom_t protocols = XCB_NONE;
    xcb_atom_t ping = XCB_NONE;
    std::uint8_t damageEvents = 0;

    xcb_window_t window = XCB_NONE; ///< the program's, once it is mapped
    bool wasPainted = false;
    bool wasPaintedThisTurn = false;
    bool isUsable = false;

    [[nodiscard]] xcb_atom_t atom(std::string_view name) const
    {
        const xcb_intern_atom_cookie_t asked =
            xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
        const Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, asked, nullptr));
        return reply ? reply->atom : XCB_NONE;
    }
    void askForEvents() const;
    void sendPing() const;
    void see(const xcb_generic_event_t& event);
    void seeAnswer(const xcb_client_message_event_t& message);
};

/// Top-level windows that come and go are told to whoever watches the root, and so are answers to pings.
void Watcher::Private::askForEvents() const
{
    // The toolkit addresses its answers to the second of the two.
    const std::uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection, root, XCB_CW_EVENT_MASK, &mask);
    // Answered, and so in force before a program starts.
    const Owned<xcb_get_input_focus_reply_t> done(
        xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
}

void Watcher::Private::sendPing() const
{
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = protocols;
    message.data.data32[0] = ping;
    message.data.data32[1] = XCB_CURRENT_TIME;
    message.data.data32[2] = window;
    xcb_send_event(connection, 0, window, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char*>(&message));
}

void Watcher::Private::see(const xcb_generic_event_t& event)
{
    const int type = event.response_type & 0x7f;
    if (type == XCB_CREATE_NOTIFY) {
        const auto& created = reinterpret_cast<const xcb_create_notify_event_t&>(event);
        xcb_damage_create(connection, xcb_generate_id(connection), created.window,
                          XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
    } else if (type == XCB_MAP_NOTIFY && window == XCB_NONE) {
        window = reinterpret_cast<const xcb_map_notify_event_t&>(event).window;
        sendPing();
    } else if (type == damageEvents + XCB_DAMAGE_NOTIFY) {
        wasPainted = wasPaintedThisTurn = true;
    } else if (type == XCB_CLIENT_MESSAGE) {
        seeAnswer(reinterpret_cast<const xcb_client_message_event_t&>(event));
    }
}

void Watcher::Private::seeAnswer(const xcb_client_message_event_t& message)
{
    if (message.type != protocols || message.data.data32[0] != ping)
        return;
    isUsable = wasPainted && !wasPaintedThisTurn;
    wasPaintedThisTurn = false;
    if (!isUsable)
        sendPing();
}

Watcher::Watcher(const QByteArray& display)
    : d(std::make_unique<Private>())
{
    d->connection = xcb_connect(display.constData(), nullptr);
    if (xcb_connection_has_error(d->connection) != 0)
        throw std::runtime_error("the display doesn't answer");
    d->root = xcb_setup_roots_iterator(xcb_get_setup(d->connection)).data->root;
    d->protocols = d->atom("WM_PROTOCOLS");
    d->ping = d->atom("_NET_WM_PING");
    const xcb_query_extension_reply_t* damage = xcb_get_extension_data(d->connection, &xcb_damage_id);
    if (damage == nullptr || damage->present == 0)
        throw std::runtime_error("the display doesn't tell what is painted");
    d->damageEvents = damage->first_event;
    const Owned<xcb_damage_query_version_reply_t> version(xcb_damage_query_version_reply(
        d->connection,
        xcb_damage_query_version(d->connection, XCB_DAMAGE_MAJOR_VERSION, XCB_DAMAGE_MINOR_VERSION),
        nullptr));
    d->askForEvents();
}

Watcher::~Watcher()
{
    xcb_disconnect(d->connection);
}

void Watcher::waitUntilUsable()
{
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (!d->isUsable) {
        while (const Owned<xcb_generic_event_t> event{xcb_poll_for_event(d->connection)})
            d->see(*event);
        if (xcb_connection_has_error(d->connection) != 0)
            throw std::runtime_error("the display is gone");
        xcb_flush(d->connection);
        // What came in while the answers went out doesn't wake the poll.
        if (const Owned<xcb_generic_event_t> event{xcb_poll_for_queued_event(d->connection)}) {
            d->see(*event);
            continue;
        }
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
        pollfd wanted{xcb_get_file_descriptor(d->connection), POLLIN, 0};
        if (!d->isUsable && (left.count() <= 0 || poll(&wanted, 1, static_cast<int>(left.count())) <= 0))
            throw std::runtime_error("no usable window");
    }
}

} // namespace bench
