#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "assistant/browser_control.h"

namespace wavforge::qt {

// A local path with an optional "?query", as a file URL that keeps the query.
QUrl LocalFileUrl(const QString& path);
// What Navigate loads: an absolute local path as a file URL, anything else as the URL it is.
QUrl NavigationUrl(const std::string& url);
// "Name:value" lines, each ended by CR LF, as request headers.
std::vector<std::pair<QByteArray, QByteArray>> RequestHeaders(const std::string& headers);
// The local page that stands for a page below the fallback's online base, as a file URL;
// nothing for any other address.
std::optional<QUrl> LocalCounterpart(const QUrl& online, const OfflineFallback& fallback);
// The page shown in place of an online page that could not be loaded: the fallback's texts
// and a link to the local page.
QString OfflinePage(const OfflineFallback& fallback, const QUrl& local);

}  // namespace wavforge::qt
