#pragma once

#include <QtGlobal>

#include <csignal>
#include <sys/resource.h>

/// Lets no file of this process grow beyond a size while it lives, as a disk without room would.
class FullDisk
{
    Q_DISABLE_COPY(FullDisk)

public:
    explicit FullDisk(rlim_t size)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit {size, m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() { ::setrlimit(RLIMIT_FSIZE, &m_before); }

private:
    rlimit m_before {};
};
