#include "qt/base/local_date.h"

#include <QDate>
#include <QDateTime>
#include <QLocale>

#include "qt/text/latin1.h"

namespace quillmark {

namespace {

// In the short form of the user's locale.
std::string DateText(const QDate& day) {
  const QString local = QLocale::system().toString(day, QLocale::ShortFormat);
  const std::string date = FromQt(local);
  // Some scripts' digits are not in the radio's alphabet.
  const bool whole = static_cast<qsizetype>(date.size()) == local.size();
  return whole ? date : FromQt(day.toString(Qt::ISODate));
}

}  // namespace

std::string LocalShortDate() { return DateText(QDate::currentDate()); }

std::string LocalDateAndTime(std::int64_t utcSeconds) {
  const QDateTime time = QDateTime::fromSecsSinceEpoch(utcSeconds);
  return DateText(time.date()) + " " + FromQt(time.time().toString(Qt::ISODate));
}

}  // namespace quillmark
