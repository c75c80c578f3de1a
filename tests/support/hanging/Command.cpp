#include "Command.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <nlohmann/json.hpp>
#include <set>
#include <stdexcept>

namespace hanging {
namespace {

using Json = nlohmann::json;

constexpr int kLargestError = 133;
constexpr std::int64_t kMost = 1'000'000'000;

std::size_t KindNamed(const std::string& name) {
  const auto* found = std::ranges::find(kKinds, name);
  if (found == kKinds.end()) throw std::invalid_argument("unknown operation '" + name + "'");
  return static_cast<std::size_t>(found - kKinds.begin());
}

std::string Text(const Json& value, const std::string& field) {
  if (!value.is_string()) throw std::invalid_argument("'" + field + "' is no text");
  return value;
}

std::int64_t Number(const Json& value, const std::string& field, std::int64_t least) {
  if (!value.is_number_integer() || value < least || value > kMost)
    throw std::invalid_argument("'" + field + "' is no whole number from " + std::to_string(least) + " to " +
                                std::to_string(kMost));
  return value;
}

int ErrorNamed(const std::string& name) {
  for (int error = 1; error <= kLargestError; ++error) {
    const char* known = strerrorname_np(error);
    if (known != nullptr && name == known) return error;
  }
  throw std::invalid_argument("unknown error '" + name + "'");
}

void KnowsOnly(const Json& line, const std::set<std::string>& fields) {
  for (const auto& [field, value] : line.items())
    if (field != "do" && !fields.contains(field))
      throw std::invalid_argument("unknown field '" + field + "'");
}

const Json& Needed(const Json& line, const std::string& field) {
  if (!line.contains(field)) throw std::invalid_argument("'" + field + "' is missing");
  return line.at(field);
}

void SetOperations(const Json& names, Rule& rule) {
  if (!names.is_array() || names.empty()) throw std::invalid_argument("'at' is no list of operations");
  for (const Json& name : names) {
    if (name == "any")
      rule.at.fill(true);
    else
      rule.at[KindNamed(Text(name, "at"))] = true;
  }
}

Rule RuleOf(const Json& line, Rule::Does does) {
  Rule rule;
  rule.does = does;
  SetOperations(Needed(line, "at"), rule);
  if (line.contains("path")) rule.path = Text(line.at("path"), "path");
  if (line.contains("after")) rule.after = Number(line.at("after"), "after", 1);
  return rule;
}

void Hang(const Json& line, Rules& rules) {
  KnowsOnly(line, {"at", "path", "after"});
  rules.Add(RuleOf(line, Rule::Does::kHang));
}

void Delay(const Json& line, Rules& rules) {
  KnowsOnly(line, {"at", "path", "after", "ms"});
  Rule rule = RuleOf(line, Rule::Does::kDelay);
  rule.delay = std::chrono::milliseconds(Number(Needed(line, "ms"), "ms", 0));
  rules.Add(rule);
}

void Fail(const Json& line, Rules& rules) {
  KnowsOnly(line, {"at", "path", "after", "error", "count"});
  Rule rule = RuleOf(line, Rule::Does::kFail);
  rule.error = ErrorNamed(Text(Needed(line, "error"), "error"));
  if (line.contains("count")) rule.count = Number(line.at("count"), "count", 1);
  rules.Add(rule);
}

void Go(const Json& line, Rules& rules) {
  KnowsOnly(line, {"error"});
  rules.Go(line.contains("error") ? ErrorNamed(Text(line.at("error"), "error")) : 0);
}

void Tell(const Json& line, const Rules& rules, Json& answer) {
  KnowsOnly(line, {});
  answer["waiting"] = Json::array();
  for (const Waiting& wait : rules.Waits()) {
    const auto passed = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - wait.since);
    answer["waiting"].push_back({{"operation", kKinds[static_cast<std::size_t>(wait.kind)]},
                                 {"path", wait.path},
                                 {"ms", passed.count()}});
  }
  const auto counts = rules.Counts();
  for (std::size_t kind = 0; kind < kKinds.size(); ++kind)
    answer["counts"][std::string(kKinds[kind])] = counts[kind];
}

void Do(const Json& line, Rules& rules, Json& answer) {
  if (!line.is_object()) throw std::invalid_argument("the line is no object");
  const std::string what = Text(Needed(line, "do"), "do");
  if (what == "hang") return Hang(line, rules);
  if (what == "delay") return Delay(line, rules);
  if (what == "fail") return Fail(line, rules);
  if (what == "go") return Go(line, rules);
  if (what == "state") return Tell(line, rules, answer);
  throw std::invalid_argument("unknown command '" + what + "'");
}

}  // namespace

std::string Answer(std::string_view line, Rules& rules) {
  Json answer = {{"ok", true}};
  try {
    Do(Json::parse(line), rules, answer);
  } catch (const Json::parse_error&) {
    answer = {{"ok", false}, {"error", "the line is no JSON"}};
  } catch (const std::invalid_argument& wrong) {
    answer = {{"ok", false}, {"error", wrong.what()}};
  }
  // A file's name may hold any bytes.
  return answer.dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace hanging
