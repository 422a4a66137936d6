#include "coursekit/sources/CourseFile.h"

#include <QSet>
#include <algorithm>
#include <array>
#include <string_view>

#define TOML_EXCEPTIONS 0
#define TOML_HEADER_ONLY 1
#include <toml++/impl/preprocessor.h>
// The parser asserts that a table's name begins as a key does. A slip of the pen breaks that; without the
// assertion the parser says so itself.
#undef TOML_ASSERT_ASSUME
#define TOML_ASSERT_ASSUME(expression) static_assert(true)
#include <toml++/toml.h>

#include "platform/files/Paths.h"

namespace {

constexpr qsizetype kModuleIdLength = 6;
constexpr qsizetype kLongestCourseName = 200;

QString Text(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// Names that become lines of a file: no control characters.
bool IsOneLine(const QString& text) {
  return std::none_of(text.begin(), text.end(), [](QChar c) { return c.category() == QChar::Other_Control; });
}

class CourseFileReader {
 public:
  CourseFileReader(QString file, Findings& findings) : file_(std::move(file)), findings_(findings) {}

  std::optional<CourseSource> Read(const QString& text) {
    const QByteArray bytes = text.toUtf8();
    const toml::parse_result parsed =
        toml::parse(std::string_view(bytes.constData(), static_cast<size_t>(bytes.size())));
    if (!parsed) {
      findings_.Error("course-file", PlaceOf(parsed.error().source()), Text(parsed.error().description()));
      return std::nullopt;
    }
    const int before = findings_.Errors();
    ReadCourse(parsed.table());
    if (findings_.Errors() > before) return std::nullopt;
    return course_;
  }

 private:
  SourcePlace PlaceOf(const toml::source_region& region) const {
    return {file_, static_cast<int>(region.begin.line), static_cast<int>(region.begin.column)};
  }

  void ReadCourse(const toml::table& table) {
    RefuseOthers(table, {"name", "repository", "words", "module"});
    course_.Name = RequiredText(table, "name");
    if (const toml::node* name = table.get("name")) course_.NamePlace = PlaceOf(name->source());
    CheckCourseName();
    course_.Repository = OptionalText(table, "repository", {});
    if (const toml::node* words = table.get("words")) ReadWords(*words);
    ReadModules(table);
    if (course_.Repository.isEmpty() && !course_.Modules.isEmpty())
      course_.Repository = course_.Modules.constFirst().Id;
    if (!course_.Repository.isEmpty() && !IsFileName(course_.Repository))
      findings_.Error("course-repository", PlaceOf(table.get("repository")->source()), course_.Repository);
  }

  // The name becomes a key of the registry and the name of files.
  void CheckCourseName() {
    const QString& name = course_.Name;
    if (name.isEmpty()) return;
    const bool isName = IsFileName(name) && name == name.trimmed() && !name.contains(u'"') &&
                        !name.contains(u'[') && !name.contains(u']') && IsOneLine(name);
    if (!isName) {
      findings_.Error("course-name", course_.NamePlace, name);
    } else if (name.size() > kLongestCourseName) {
      findings_.Error("course-name-long", course_.NamePlace, QString::number(kLongestCourseName));
    }
  }

  void ReadWords(const toml::node& node) {
    const toml::table* words = node.as_table();
    if (words == nullptr) return Refuse("course-no-table", node, "words");
    RefuseOthers(*words, {"true", "false"});
    course_.TrueWord = OptionalText(*words, "true", course_.TrueWord);
    course_.FalseWord = OptionalText(*words, "false", course_.FalseWord);
  }

  void ReadModules(const toml::table& table) {
    const toml::node* node = table.get("module");
    const toml::array* modules = node != nullptr ? node->as_array() : nullptr;
    if (modules == nullptr || modules->empty()) {
      findings_.Error("course-no-modules", {file_, node != nullptr ? PlaceOf(node->source()).Line : 1, 1});
      return;
    }
    for (const toml::node& module : *modules) {
      const toml::table* its = module.as_table();
      if (its == nullptr) {
        Refuse("course-no-table", module, "module");
      } else {
        ReadModule(*its);
      }
    }
  }

  void ReadModule(const toml::table& table) {
    RefuseOthers(table, {"id", "name", "pages", "practice"});
    ModuleSource module;
    module.Place = PlaceOf(table.source());
    module.Id = RequiredText(table, "id");
    module.Name = RequiredText(table, "name");
    module.Pages = Texts(table, "pages");
    module.Practice = Texts(table, "practice");
    if (!module.Id.isEmpty() && !IsModuleId(module.Id)) Refuse("module-id", *table.get("id"), module.Id);
    if (ids_.contains(module.Id)) Refuse("module-twice", *table.get("id"), module.Id);
    if (!IsOneLine(module.Name)) Refuse("module-name", *table.get("name"), module.Name);
    if (!module.Id.isEmpty()) ids_.insert(module.Id);
    course_.Modules.append(module);
  }

  void Refuse(const char* key, const toml::node& node, const QString& argument) {
    findings_.Error(key, PlaceOf(node.source()), argument);
  }
  void Refuse(const char* key, const toml::node& node, const char* argument) {
    Refuse(key, node, QString::fromLatin1(argument));
  }

  void RefuseOthers(const toml::table& table, std::initializer_list<std::string_view> known) {
    for (const auto& [key, value] : table) {
      if (std::find(known.begin(), known.end(), key.str()) != known.end()) continue;
      findings_.Error("course-unknown-key", PlaceOf(key.source()), Text(key.str()));
    }
  }

  QString RequiredText(const toml::table& table, const char* key) {
    const toml::node* node = table.get(key);
    if (node == nullptr) {
      findings_.Error("course-missing-key", PlaceOf(table.source()), QString::fromLatin1(key));
      return {};
    }
    const QString text = TextOf(*node, key).trimmed();
    if (text.isEmpty() && node->is_string()) Refuse("course-empty", *node, key);
    return text;
  }

  QString OptionalText(const toml::table& table, const char* key, const QString& otherwise) {
    const toml::node* node = table.get(key);
    const QString text = node != nullptr ? TextOf(*node, key).trimmed() : QString();
    return text.isEmpty() ? otherwise : text;
  }

  QString TextOf(const toml::node& node, const char* key) {
    const auto* text = node.as_string();
    if (text == nullptr) {
      Refuse("course-no-text", node, key);
      return {};
    }
    return Text(text->get());
  }

  QStringList Texts(const toml::table& table, const char* key) {
    const toml::node* node = table.get(key);
    if (node == nullptr) return {};
    const toml::array* array = node->as_array();
    if (array == nullptr) {
      Refuse("course-no-list", *node, key);
      return {};
    }
    QStringList texts;
    for (const toml::node& text : *array)
      texts.append(TextOf(text, key));
    return texts;
  }

  QString file_;
  Findings& findings_;
  CourseSource course_;
  QSet<QString> ids_;
};

}  // namespace

std::optional<CourseSource> ReadCourseFile(const QString& text, const QString& file, Findings& findings) {
  return CourseFileReader(file, findings).Read(text);
}

bool IsModuleId(const QString& text) {
  return text.size() == kModuleIdLength && std::all_of(text.begin(), text.end(), [](QChar c) {
           return (c >= u'a' && c <= u'z') || (c >= u'0' && c <= u'9');
         });
}
