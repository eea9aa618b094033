#include "ActiveProcess.h"

#include <QFile>
#include <QGuiApplication>
#include <QSocketNotifier>

#include <xcb/xcb.h>

#include <cstdlib>
#include <cstring>

namespace {

struct FreeReply
{
    void operator()(void* reply) const { std::free(reply); }
};

template<typename T>
using Reply = std::unique_ptr<T, FreeReply>;

} // namespace

/// A connection of our own to the X server: the window manager tells the active window in the property
/// _NET_ACTIVE_WINDOW of the root window, and a window its process in _NET_WM_PID.
struct ActiveProcess::Private
{
    xcb_connection_t* connection = nullptr;
    xcb_window_t root = XCB_WINDOW_NONE;
    xcb_atom_t activeWindow = XCB_ATOM_NONE;
    xcb_atom_t windowProcess = XCB_ATOM_NONE;
    std::unique_ptr<QSocketNotifier> notifier;
    quint32 processId = 0;

    Private() = default;
    Q_DISABLE_COPY(Private)
    ~Private()
    {
        notifier.reset();
        if (connection)
            xcb_disconnect(connection);
    }

    bool connectToServer()
    {
        int screenNumber = 0;
        connection = xcb_connect(nullptr, &screenNumber);
        if (xcb_connection_has_error(connection) != 0)
            return false;
        xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
        for (; screens.rem > 1 && screenNumber > 0; --screenNumber)
            xcb_screen_next(&screens);
        root = screens.data->root;
        activeWindow = atom("_NET_ACTIVE_WINDOW");
        windowProcess = atom("_NET_WM_PID");
        const quint32 mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_change_window_attributes(connection, root, XCB_CW_EVENT_MASK, &mask);
        xcb_flush(connection);
        return true;
    }

    xcb_atom_t atom(const char* name) const
    {
        const auto cookie = xcb_intern_atom(connection, 0, quint16(std::strlen(name)), name);
        const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, cookie, nullptr));
        return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
    }

    /// The first 32 bits of a property; 0 if the window or the property is gone.
    quint32 property(xcb_window_t window, xcb_atom_t name, xcb_atom_t type) const
    {
        const auto cookie = xcb_get_property(connection, 0, window, name, type, 0, 1);
        xcb_generic_error_t* error = nullptr;
        const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(connection, cookie, &error));
        std::free(error);
        if (!reply || reply->format != 32 || xcb_get_property_value_length(reply.get()) < 4)
            return 0;
        quint32 value = 0;
        std::memcpy(&value, xcb_get_property_value(reply.get()), sizeof value);
        return value;
    }

    quint32 readProcessId() const
    {
        const quint32 window = property(root, activeWindow, XCB_ATOM_WINDOW);
        return window == 0 ? 0 : property(window, windowProcess, XCB_ATOM_CARDINAL);
    }
};

ActiveProcess::ActiveProcess(QObject* parent)
    : QObject(parent)
{
    if (QGuiApplication::platformName() != QLatin1String("xcb"))
        return;
    auto connection = std::make_unique<Private>();
    if (!connection->connectToServer())
        return;
    m_private = std::move(connection);
    m_private->processId = m_private->readProcessId();
    m_private->notifier = std::make_unique<QSocketNotifier>(
        qintptr(xcb_get_file_descriptor(m_private->connection)), QSocketNotifier::Read);
    connect(m_private->notifier.get(), SIGNAL(activated(int)), this, SLOT(onReadable()));
}

ActiveProcess::~ActiveProcess() = default;

quint32 ActiveProcess::processId() const
{
    return m_private ? m_private->processId : 0;
}

QString ActiveProcess::executable(quint32 processId)
{
    return processId == 0 ? QString() : QFile::symLinkTarget(QStringLiteral("/proc/%1/exe").arg(processId));
}

void ActiveProcess::onReadable()
{
    bool isTouched = false;
    const auto drain = [&] {
        while (const Reply<xcb_generic_event_t> event {xcb_poll_for_event(m_private->connection)}) {
            if ((event->response_type & 0x7f) != XCB_PROPERTY_NOTIFY)
                continue;
            const auto* const notify = reinterpret_cast<const xcb_property_notify_event_t*>(event.get());
            isTouched = isTouched || notify->atom == m_private->activeWindow;
        }
    };
    drain();
    while (isTouched) {
        isTouched = false;
        const quint32 processId = m_private->readProcessId();
        if (processId != m_private->processId) {
            m_private->processId = processId;
            Q_EMIT changed();
        }
        // Waiting for the answers has read further events off the socket.
        drain();
    }
    if (xcb_connection_has_error(m_private->connection) != 0)
        m_private->notifier->setEnabled(false);
}
