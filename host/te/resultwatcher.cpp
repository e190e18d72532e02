#include "host/te/resultwatcher.h"

#include "host/nlsdata/readcontrol.h"
#include "host/nlsdata/readnetlist.h"
#include "host/te/worker.h"
#include "nlsdata/netlist.h"

namespace TE {

using Utils::FileStamp;
using Utils::FileWatcher;

ResultWatcher::ResultWatcher()
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(PATIENCE);
    connect(&m_files, &FileWatcher::changed, this, &ResultWatcher::tryToRead);
    connect(&m_files, &FileWatcher::removed, this, &ResultWatcher::stopTrial);
    connect(&m_files, &FileWatcher::restored, this, &ResultWatcher::accept);
    connect(&m_patience, &QTimer::timeout, this, [this] {
        if (FileStamp::of(m_path) == m_tried) // otherwise it is being written
            emit unreadable(m_reason);
    });
}

ResultWatcher::~ResultWatcher()
{
    stopTrial();
}

void ResultWatcher::setFile(const QString &path)
{
    stopTrial();
    if (!m_path.isEmpty())
        m_files.forget(m_path);
    m_path = path;
    accept();
}

void ResultWatcher::accept()
{
    stopTrial();
    m_open = false;
    m_known = FileStamp::of(m_path);
    if (!m_paused && !m_path.isEmpty())
        m_files.watch(m_path);
}

void ResultWatcher::setPaused(bool paused)
{
    if (paused == m_paused)
        return;
    m_paused = paused;
    if (paused) {
        stopTrial();
        m_open = m_open || FileStamp::of(m_path) != m_known;
        m_files.forget(m_path);
        return;
    }
    const bool open = m_open;
    accept();
    if (open)
        tryToRead();
}

void ResultWatcher::stopTrial()
{
    m_patience.stop();
    if (m_control)
        m_control->cancel();
    m_worker.reset();
}

void ResultWatcher::tryToRead()
{
    stopTrial();
    m_open = true;
    m_tried = FileStamp::of(m_path);
    if (!m_tried.exists())
        return;
    m_control = std::make_unique<NlsData::ReadControl>();
    m_worker = std::make_unique<Worker>([this, path = m_path](const Worker &) {
        NlsData::ReadOptions options;
        options.control = m_control.get();
        QString reason;
        m_reason = NlsData::readNetlist(path, &reason, options) ? QString() : reason;
    });
    connect(m_worker.get(), &Worker::done, this, &ResultWatcher::onRead);
}

void ResultWatcher::onRead()
{
    m_worker.release()->deleteLater(); // its signal is what this is called from
    if (FileStamp::of(m_path) != m_tried)
        return; // written again: tried again when it rests
    if (!m_reason.isEmpty()) {
        m_patience.start();
        return;
    }
    accept();
    if (m_known == m_tried)
        emit replaced();
    else
        tryToRead();
}

} // namespace TE
