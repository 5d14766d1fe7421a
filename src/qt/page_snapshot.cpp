#include "qt/page_snapshot.h"

#include <QVariantList>

namespace wavforge::qt {
namespace {

std::string Text(const QVariant& value) {
  return value.toString().toStdString();
}

HtmlElement ElementFrom(const QVariantMap& read) {
  HtmlElement element;
  element.tagName = Text(read.value("tagName"));
  element.name = Text(read.value("name"));
  element.type = Text(read.value("type"));
  element.checked = read.value("checked").toBool();
  element.disabled = read.value("disabled").toBool();
  element.innerHTML = Text(read.value("innerHTML"));
  for (const QVariant& pair : read.value("attributes").toList()) {
    const QVariantList name_value = pair.toList();
    if (name_value.size() == 2)
      element.attributes.emplace_back(Text(name_value[0]), Text(name_value[1]));
  }
  return element;
}

std::vector<HtmlElement> ElementsFrom(const QVariant& list) {
  std::vector<HtmlElement> elements;
  for (const QVariant& read : list.toList()) elements.push_back(ElementFrom(read.toMap()));
  return elements;
}

}  // namespace

std::shared_ptr<HtmlDocument> DocumentFromSnapshot(const QVariantMap& snapshot) {
  auto document = std::make_shared<HtmlDocument>();
  document->URL = Text(snapshot.value("URL"));
  document->title = Text(snapshot.value("title"));
  document->bodyInnerText = Text(snapshot.value("bodyInnerText"));
  document->bodyInnerHTML = Text(snapshot.value("bodyInnerHTML"));
  document->metas = ElementsFrom(snapshot.value("metas"));
  document->all = ElementsFrom(snapshot.value("all"));
  document->activeElementIndex = snapshot.value("activeElementIndex", -1).toInt();
  document->focused = snapshot.value("focused").toBool();
  return document;
}

}  // namespace wavforge::qt
