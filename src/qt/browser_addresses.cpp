#include "qt/browser_addresses.h"

namespace wavforge::qt {

QUrl LocalFileUrl(const QString& path) {
  const qsizetype query = path.indexOf(u'?');
  QUrl url = QUrl::fromLocalFile(path.left(query));
  if (query >= 0) url.setQuery(path.mid(query + 1));
  return url;
}

QUrl NavigationUrl(const std::string& url) {
  const QString text = QString::fromStdString(url);
  return text.startsWith(u'/') ? LocalFileUrl(text) : QUrl(text);
}

std::vector<std::pair<QByteArray, QByteArray>> RequestHeaders(const std::string& headers) {
  std::vector<std::pair<QByteArray, QByteArray>> result;
  for (const QByteArray& line : QByteArray::fromStdString(headers).split('\n')) {
    const qsizetype colon = line.indexOf(':');
    if (colon <= 0) continue;
    const QByteArray name = line.left(colon).trimmed();
    if (!name.isEmpty()) result.emplace_back(name, line.mid(colon + 1).trimmed());
  }
  return result;
}

std::optional<QUrl> LocalCounterpart(const QUrl& online, const OfflineFallback& fallback) {
  if (fallback.online_base.empty()) return std::nullopt;
  const QString base =
      QUrl(QString::fromStdString(fallback.online_base)).toString(QUrl::FullyEncoded);
  const QString address = online.toString(QUrl::FullyEncoded);
  if (!address.startsWith(base)) return std::nullopt;
  const QString rest_and_fragment = address.mid(base.size());
  const qsizetype hash = rest_and_fragment.indexOf(u'#');
  const QString rest = rest_and_fragment.left(hash);
  const qsizetype query = rest.indexOf(u'?');
  QString folder = QString::fromStdString(fallback.local_folder);
  if (!folder.endsWith(u'/')) folder += u'/';
  QUrl local = QUrl::fromLocalFile(folder + QUrl::fromPercentEncoding(rest.left(query).toUtf8()));
  if (query >= 0) local.setQuery(rest.mid(query + 1));
  if (hash >= 0) local.setFragment(rest_and_fragment.mid(hash + 1));
  return local;
}

QString OfflinePage(const OfflineFallback& fallback, const QUrl& local) {
  const auto html = [](const std::string& text) {
    return QString::fromStdString(text).toHtmlEscaped();
  };
  return QStringLiteral(
             "<!DOCTYPE html><html><head><meta charset=\"utf-8\"><title>%1</title>"
             "<style>body { font-family: sans-serif; margin: 2em; }</style></head><body>"
             "<h1>%1</h1><p style=\"white-space: pre-line\">%2</p>"
             "<p><a href=\"%3\">%4</a></p></body></html>")
      .arg(html(fallback.title), html(fallback.message),
           local.toString(QUrl::FullyEncoded).toHtmlEscaped(), html(fallback.link_text));
}

}  // namespace wavforge::qt
