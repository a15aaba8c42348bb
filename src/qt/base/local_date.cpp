#include "qt/base/local_date.h"

#include <QDate>
#include <QLocale>

#include "qt/text/latin1.h"

namespace quillmark {

std::string LocalShortDate() {
  const QDate today = QDate::currentDate();
  const QString local = QLocale::system().toString(today, QLocale::ShortFormat);
  const std::string date = FromQt(local);
  // Some scripts' digits are not in the radio's alphabet.
  const bool whole = static_cast<qsizetype>(date.size()) == local.size();
  return whole ? date : FromQt(today.toString(Qt::ISODate));
}

}  // namespace quillmark
