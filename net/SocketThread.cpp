#include "net/SocketThread.h"

#include "platform/server_process.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace tarveth {

// The handlers hold no share of the object: they are called inside io_.run() alone, and the thread holds one.
std::shared_ptr<SocketThread> SocketThread::Start(const SocketTarget& target, Tell tell) {
    auto self = std::make_shared<SocketThread>(target, std::move(tell));
    self->thread_ = std::thread([self] {
        self->Begin();
        self->io_.run();
    });
    return self;
}

SocketThread::SocketThread(const SocketTarget& target, Tell tell)
    : work_(io_.get_executor()),
      resolver_(io_),
      socket_(io_),
      timer_(io_),
      target_(target),
      deadline_(Clock::now() + target.patience),
      tell_(std::move(tell)) {
    asio::error_code noAddress;
    const asio::ip::address address = asio::ip::make_address(target_.host, noAddress);
    lookingUp_ = bool(noAddress);
    if (!noAddress)
        untried_.emplace_back(address, target_.port);
}

void SocketThread::Begin() {
    if (!untried_.empty())
        TryNext();
    else
        LookUp();
}

void SocketThread::LookUp() {
    SetTimer(deadline_);
    try {
        resolver_.async_resolve(
            target_.host, std::to_string(target_.port), Tcp::resolver::numeric_service,
            [this](const asio::error_code&, const Tcp::resolver::results_type& found) { LookedUp(found); });
    } catch (const std::system_error&) { // Asio looks up on a thread of its own, and there is none to spare
        LookedUp({});
    }
}

void SocketThread::LookedUp(const Tcp::resolver::results_type& found) {
    {
        const std::lock_guard lock(mutex_);
        lookingUp_ = false;
    }
    if (ended_)
        return;
    untried_.assign(found.begin(), found.end());
    std::reverse(untried_.begin(), untried_.end());
    TryNext();
}

// Each address has its share of the time that is left, so that one that keeps silent leaves some for others.
void SocketThread::TryNext() {
    while (!untried_.empty()) {
        const auto addresses = static_cast<int>(untried_.size());
        const Tcp::endpoint address = untried_.back();
        untried_.pop_back();
        if (!Open(address.protocol()))
            continue;
        const Clock::time_point now = Clock::now();
        SetTimer(now + (deadline_ - now) / addresses);
        socket_.async_connect(address, [this](const asio::error_code& failure) { Tried(failure); });
        return;
    }
    Fail(SocketEvent::Connect);
}

bool SocketThread::Open(const Tcp& protocol) {
    asio::error_code failure;
    socket_.close(failure);
    socket_.open(protocol, failure);
    const Tcp::endpoint& local = target_.local;
    if (!failure && !local.address().is_unspecified())
        socket_.bind(local, failure);
    else if (!failure && local.port() != 0)
        socket_.bind({protocol, local.port()}, failure);
    return !failure;
}

void SocketThread::Tried(const asio::error_code& failure) {
    if (ended_)
        return;
    asio::error_code gone; // at once, or given up by the timer
    const Tcp::endpoint peer = socket_.remote_endpoint(gone);
    if (failure || gone) {
        TryNext();
        return;
    }
    timer_.expires_at(Clock::time_point::max());
    socket_.set_option(Tcp::no_delay(true), gone);
    platform::EnableKeepAlive(static_cast<int>(socket_.native_handle()));
    {
        const std::lock_guard lock(mutex_);
        reading_ = true;
        if (tell_)
            tell_(SocketEvent::Connect, peer.address().to_string());
    }
    Read();
}

// A wait that is over may have been queued before the timer was set anew; the time tells.
void SocketThread::SetTimer(Clock::time_point due) {
    timer_.expires_at(due);
    timer_.async_wait([this](const asio::error_code& cancelled) {
        if (!cancelled && Clock::now() >= timer_.expiry())
            GiveUp();
    });
}

void SocketThread::GiveUp() {
    asio::error_code ignored;
    if (socket_.is_open())
        socket_.close(ignored); // and so this try has failed
    else
        Fail(SocketEvent::Connect);
}

void SocketThread::Read() {
    socket_.async_read_some(asio::buffer(chunk_), [this](const asio::error_code& failure, std::size_t size) {
        if (ended_ || leaving_)
            return;
        if (failure)
            Fail(SocketEvent::Close);
        else
            Keep(size);
    });
}

void SocketThread::Keep(std::size_t size) {
    bool more = false;
    {
        const std::lock_guard lock(mutex_);
        const bool first = received_.empty();
        received_.append(chunk_.data(), size);
        more = ++chunks_ < kMostChunks;
        reading_ = more;
        if (first && tell_)
            tell_(SocketEvent::DataArrival, {});
    }
    if (more)
        Read();
}

std::string SocketThread::Receive() {
    const std::lock_guard lock(mutex_);
    chunks_ = 0;
    if (!std::exchange(reading_, true))
        asio::post(io_, [this] {
            if (!ended_ && !leaving_)
                Read();
        });
    return std::exchange(received_, {});
}

void SocketThread::Send(const std::string& text) {
    const std::lock_guard lock(mutex_);
    if (text.size() > kMostUnsent - unsent_) {
        asio::post(io_, [this] { Fail(SocketEvent::Close); });
        return;
    }
    unsent_ += text.size();
    outgoing_ += text;
    asio::post(io_, [this] { Write(); });
}

void SocketThread::Write() {
    if (writing_ || unwritable_ || ended_ || !TakeUnsent())
        return;
    writing_ = true;
    socket_.async_write_some(
        asio::buffer(sending_) + sent_,
        [this](const asio::error_code& failure, std::size_t size) { Wrote(failure, size); });
}

void SocketThread::Wrote(const asio::error_code& failure, std::size_t size) {
    writing_ = false;
    sent_ += size;
    {
        const std::lock_guard lock(mutex_);
        unsent_ -= size;
    }
    if (ended_)
        return;
    if (leaving_)
        WriteWhatFits();
    else if (!failure)
        Write();
    else { // what came before may still be read; the end of that is the end of the connection
        asio::error_code ignored;
        unwritable_ = true;
        socket_.shutdown(Tcp::socket::shutdown_send, ignored);
    }
}

// Whether sending_ has something left to send.
bool SocketThread::TakeUnsent() {
    if (sent_ < sending_.size())
        return true;
    sending_.clear();
    sent_ = 0;
    const std::lock_guard lock(mutex_);
    sending_.swap(outgoing_);
    return !sending_.empty();
}

// A look-up can't be called off, so then the thread is left to itself: it ends with the look-up.
void SocketThread::Abandon() {
    bool lookingUp = false;
    {
        const std::lock_guard lock(mutex_);
        tell_ = nullptr;
        lookingUp = lookingUp_;
    }
    asio::post(io_, [this] { Leave(); });
    if (lookingUp)
        thread_.detach();
    else
        thread_.join();
}

void SocketThread::Leave() {
    leaving_ = true;
    asio::error_code ignored;
    if (writing_)
        socket_.cancel(ignored); // and Wrote learns how far it has got
    else if (!ended_)
        WriteWhatFits();
}

void SocketThread::WriteWhatFits() {
    asio::error_code failure;
    socket_.non_blocking(true, failure);
    while (!failure && TakeUnsent())
        sent_ += socket_.write_some(asio::buffer(sending_) + sent_, failure);
    End();
}

void SocketThread::Fail(SocketEvent event) {
    if (ended_)
        return;
    End();
    const std::lock_guard lock(mutex_);
    if (tell_)
        tell_(event, {});
}

void SocketThread::End() {
    ended_ = true;
    asio::error_code ignored;
    timer_.expires_at(Clock::time_point::max());
    resolver_.cancel();
    socket_.shutdown(Tcp::socket::shutdown_both, ignored);
    socket_.close(ignored);
    work_.reset();
}

} // namespace tarveth
