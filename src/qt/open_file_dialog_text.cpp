#include "qt/open_file_dialog_text.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace wavforge::qt {

QStringList NameFiltersFromFilterList(const std::string& filter) {
  QStringList parts;
  std::size_t start = 0;
  while (start < filter.size()) {
    const std::size_t nul = filter.find('\0', start);
    const std::size_t end = nul == std::string::npos ? filter.size() : nul;
    if (end == start) break;  // an empty part closes the list
    parts.push_back(QString::fromStdString(filter.substr(start, end - start)));
    start = end + 1;
  }
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    QStringList patterns = parts[i + 1].split(u';', Qt::SkipEmptyParts);
    for (QString& pattern : patterns) pattern = pattern.trimmed();
    filters.push_back(parts[i] + QStringLiteral(" (") + patterns.join(u' ') + QStringLiteral(")"));
  }
  return filters;
}

std::string DialogAnswer(const QStringList& files) {
  const auto bytes = [](const QString& text) { return QFile::encodeName(text).toStdString(); };
  std::string answer;
  if (files.size() == 1) {
    answer = bytes(QDir::cleanPath(QFileInfo(files[0]).absoluteFilePath()));
  } else if (files.size() > 1) {
    // The folder all of them share; the names are what follows it.
    QString folder = QFileInfo(files[0]).absolutePath();
    const auto inside = [](const QString& path, const QString& dir) {
      return dir == QStringLiteral("/") || path.startsWith(dir + QChar(u'/'));
    };
    for (const QString& file : files) {
      const QString path = QFileInfo(file).absoluteFilePath();
      while (!inside(path, folder)) folder = QFileInfo(folder).path();
    }
    answer = bytes(folder);
    const QDir dir(folder);
    for (const QString& file : files) {
      answer += '\0';
      answer += bytes(dir.relativeFilePath(QFileInfo(file).absoluteFilePath()));
    }
  }
  answer.append(2, '\0');
  return answer;
}

}  // namespace wavforge::qt
