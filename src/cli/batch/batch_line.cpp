#include "cli/batch/batch_line.h"

#include <algorithm>

#include "cli/json.h"
#include "cli/utf8.h"

namespace quillmark {

std::vector<std::string> FieldsOf(const BatchLine& line) {
  std::vector<std::string> fields;
  fields.reserve(BatchColumns.size());
  for (const BatchColumn& column : BatchColumns) fields.push_back(line.*column.Field);
  return fields;
}

BatchLine LineOf(const std::vector<std::string>& fields) {
  BatchLine line;
  for (std::size_t i = 0; i < std::min(fields.size(), BatchColumns.size()); ++i) {
    line.*BatchColumns[i].Field = fields[i];
  }
  return line;
}

std::string JsonOf(const BatchLine& line) {
  JsonObject object;
  object.Add("version", "1");
  for (const BatchColumn& column : BatchColumns) {
    object.Add(column.Name, JsonText(FromUtf8(line.*column.Field).value_or("?")));
  }
  return object.Text();
}

}  // namespace quillmark
