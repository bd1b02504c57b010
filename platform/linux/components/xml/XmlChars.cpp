#include "platform/linux/components/xml/XmlChars.h"

#include "platform/linux/components/foundation/Text.h"

namespace wrt::components {
namespace {

bool isXmlText(std::u16string_view text) {
  for (size_t i = 0; i < text.size(); ++i) {
    const char16_t unit = text[i];
    const bool isHigh = unit >= 0xD800 && unit < 0xDC00;
    if (isHigh && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000)
      ++i;
    else if ((unit < 0x20 && unit != u'\t' && unit != u'\n' && unit != u'\r') ||
             (unit >= 0xD800 && unit < 0xE000) || unit >= 0xFFFE)
      return false;
  }
  return true;
}

} // namespace

std::string xmlText(std::u16string_view text) {
  return isXmlText(text) ? encodeUtf8(text) : kNoText;
}

bool canHold(xmlElementType kind, const std::string &content) {
  switch (kind) {
  case XML_COMMENT_NODE:
    return content != kNoText && content.find("--") == content.npos && !content.ends_with('-');
  case XML_CDATA_SECTION_NODE:
    return content != kNoText && content.find("]]>") == content.npos;
  case XML_PI_NODE:
    return content != kNoText && content.find("?>") == content.npos;
  default:
    return content != kNoText;
  }
}

bool isName(const std::string &name) {
  return name != kNoText && xmlValidateQName(chars(name), 0) == 0;
}

} // namespace wrt::components
