#include <windows.h>
// Needs windows.h in front of it.
#include <winhttp.h>

#include <QString>
#include <QThread>
#include <array>
#include <memory>

#include "ui/guard.h"
#include "ui/qt_text.h"
#include "ui/version_fetch.h"

namespace quillmark {
namespace {

class Internet {
  public:
    explicit Internet(HINTERNET handle) : handle_(handle) {}
    ~Internet() {
        if (handle_ != nullptr) {
            ::WinHttpCloseHandle(handle_);
        }
    }
    Internet(const Internet&) = delete;
    Internet& operator=(const Internet&) = delete;
    [[nodiscard]] HINTERNET get() const { return handle_; }
    [[nodiscard]] bool valid() const { return handle_ != nullptr; }

  private:
    HINTERNET handle_;
};

bool answered(HINTERNET request) {
    DWORD status = 0;
    DWORD size = sizeof status;
    return ::WinHttpSendRequest(request, WINHTTP_NO_ADDITIONAL_HEADERS, 0, WINHTTP_NO_REQUEST_DATA,
                                0, 0, 0) != 0 &&
           ::WinHttpReceiveResponse(request, nullptr) != 0 &&
           ::WinHttpQueryHeaders(request, WINHTTP_QUERY_STATUS_CODE | WINHTTP_QUERY_FLAG_NUMBER,
                                 WINHTTP_HEADER_NAME_BY_INDEX, &status, &size,
                                 WINHTTP_NO_HEADER_INDEX) != 0 &&
           status == HTTP_STATUS_OK;
}

std::optional<std::string> bodyOf(HINTERNET request) {
    std::string body;
    std::array<char, 1024> part{};
    const ULONGLONG end = ::GetTickCount64() + kFetchLimit;
    while (body.size() <= static_cast<std::size_t>(kLongestVersionNote) &&
           ::GetTickCount64() < end) {
        DWORD count = 0;
        if (::WinHttpReadData(request, part.data(), static_cast<DWORD>(part.size()), &count) == 0) {
            return std::nullopt;
        }
        if (count == 0) {
            return body;
        }
        body.append(part.data(), count);
    }
    return std::nullopt;
}

std::optional<std::string> fetch(const std::wstring& address) {
    std::array<wchar_t, 256> host{};
    std::array<wchar_t, 2048> path{};
    URL_COMPONENTS parts{};
    parts.dwStructSize = sizeof parts;
    parts.lpszHostName = host.data();
    parts.dwHostNameLength = static_cast<DWORD>(host.size());
    parts.lpszUrlPath = path.data();
    parts.dwUrlPathLength = static_cast<DWORD>(path.size());
    if (::WinHttpCrackUrl(address.c_str(), 0, 0, &parts) == 0) {
        return std::nullopt;  // also for any scheme but http and https
    }
    const Internet session(::WinHttpOpen(L"Quillmark", WINHTTP_ACCESS_TYPE_DEFAULT_PROXY,
                                         WINHTTP_NO_PROXY_NAME, WINHTTP_NO_PROXY_BYPASS, 0));
    if (!session.valid()) {
        return std::nullopt;
    }
    ::WinHttpSetTimeouts(session.get(), kFetchLimit, kFetchLimit, kFetchLimit, kFetchLimit);
    const Internet connection(::WinHttpConnect(session.get(), host.data(), parts.nPort, 0));
    const DWORD secure = parts.nScheme == INTERNET_SCHEME_HTTPS ? WINHTTP_FLAG_SECURE : 0;
    const Internet request(connection.valid()
                               ? ::WinHttpOpenRequest(connection.get(), L"GET", path.data(),
                                                      nullptr, WINHTTP_NO_REFERER,
                                                      WINHTTP_DEFAULT_ACCEPT_TYPES, secure)
                               : nullptr);
    if (!request.valid() || !answered(request.get())) {
        return std::nullopt;
    }
    return bodyOf(request.get());
}

}  // namespace

void fetchVersionNote(QObject* owner, const std::string& address,
                      std::function<void(const std::optional<std::string>&)> done) {
    const auto note = std::make_shared<std::optional<std::string>>();
    QThread* thread =
        QThread::create([note, wide = toQt(address).toStdWString()] { *note = fetch(wide); });
    QObject::connect(
        thread, &QThread::finished, owner,
        guarded("fetchVersionNote", "frmUpdate", [note, done = std::move(done)] { done(*note); }));
    QObject::connect(thread, &QThread::finished, thread, &QObject::deleteLater);
    thread->start();
}

}  // namespace quillmark
