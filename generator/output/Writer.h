#ifndef WRT_GENERATOR_WRITER_H
#define WRT_GENERATOR_WRITER_H

#include <concepts>
#include <string>
#include <string_view>
#include <type_traits>

namespace bridgegen {

/// Not defined: calling it stops a compilation, and the message shows the name.
void numberOfPlaceholdersDiffersFromNumberOfArguments();

/// A text with a `%` for each of `Arguments`. A text with another number of them does not compile.
template <class... Arguments>
struct Template {
  std::string_view text;

  consteval Template(const char *text) : text(text) {
    if (countPlaceholders(text) != sizeof...(Arguments))
      numberOfPlaceholdersDiffersFromNumberOfArguments();
  }

private:
  static consteval size_t countPlaceholders(std::string_view text) {
    size_t count = 0;
    for (const char c : text)
      count += c == '%';
    return count;
  }
};

/// Collects generated text. Writers compose: an argument of a template may be a text, a number or
/// something that writes itself when called with the writer.
class Writer {
public:
  /// How many spaces a scope indents by.
  explicit Writer(unsigned indentation = 2) : indentation_(indentation) {}

  /// Everything that is written while this lives is indented, and `end` is written after it.
  class Scope {
  public:
    Scope(Writer &writer, std::string_view end) : writer_(writer), end_(end) { ++writer.depth_; }
    Scope(const Scope &) = delete;
    Scope &operator=(const Scope &) = delete;
    ~Scope() {
      --writer_.depth_;
      writer_.append(end_);
    }

  private:
    Writer &writer_;
    std::string end_;
  };

  template <class... Arguments>
  void write(std::type_identity_t<Template<Arguments...>> pattern, const Arguments &...arguments) {
    std::string_view rest = pattern.text;
    (writeOne(rest, arguments), ...);
    append(rest);
  }

  /// Opens an indented part that ends with the scope's life.
  [[nodiscard]] Scope scope(std::string_view begin, std::string_view end) {
    append(begin);
    return Scope(*this, end);
  }

  const std::string &text() const { return text_; }

  /// Adds `text` as it is, with the indentation before every line that is not empty.
  void append(std::string_view text);

private:
  template <class Argument>
  void writeOne(std::string_view &rest, const Argument &argument) {
    append(rest.substr(0, rest.find('%')));
    rest.remove_prefix(rest.find('%') + 1);
    if constexpr (std::invocable<const Argument &, Writer &>)
      argument(*this);
    else if constexpr (std::integral<Argument>)
      append(std::to_string(argument));
    else
      append(argument);
  }

  std::string text_;
  unsigned indentation_;
  unsigned depth_ = 0;
};

/// Writes `items` one after the other with `separator` between them, each as `write(writer, item)`
/// does. The items must outlive it.
template <class Items, class Write>
auto separated(const Items &items, std::string_view separator, Write write) {
  return [&items, separator, write](Writer &writer) {
    bool isFirst = true;
    for (const auto &item : items) {
      if (!isFirst)
        writer.append(separator);
      isFirst = false;
      write(writer, item);
    }
  };
}

} // namespace bridgegen

#endif
