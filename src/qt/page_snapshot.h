#pragma once

#include <QVariant>
#include <memory>

#include "assistant/html_document.h"

namespace wavforge::qt {

// The document the snapshot script read from a page (page_scripts/snapshot.js).
std::shared_ptr<HtmlDocument> DocumentFromSnapshot(const QVariantMap& snapshot);

}  // namespace wavforge::qt
