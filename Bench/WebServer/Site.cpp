#include "Site.h"

#include <cstdlib>
#include <fstream>
#include <iterator>

#include "BenchTexts.h"

namespace bench {
namespace {

const char kProductsPath[] = "/klimora";
const char kChoosePath[] = "/klimora/choose";
const char kExportPath[] = "/klimora/export/";
const char kExportEnding[] = ".xml";

bool StartsWith(const std::string& text, const std::string& beginning) {
    return text.compare(0, beginning.size(), beginning) == 0;
}

double Number(const std::string& text) {
    return std::strtod(text.c_str(), nullptr);
}

// Returns an error page as a web server shows it.
WebAnswer Page(int status, const std::string& text) {
    return {
        status, "text/html",
        "<html><head><title>" + std::to_string(status) + "</title></head><body><p>" + text + "<br></body></html>\n"};
}

WebAnswer File(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) return Page(500, "The file " + path + " cannot be read.");
    WebAnswer answer;
    answer.type = "application/octet-stream";
    answer.body.assign(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    return answer;
}

}  // namespace

Site::Site(const std::string& catalogue, std::string server) : catalogue_(catalogue), server_(std::move(server)) {}

ServerFault Site::RecordRequest(const std::string& method, const RequestTarget& target) {
    const std::lock_guard<std::mutex> lock(mutex_);
    requests_.push_back(method + ' ' + target.text());
    ServerFault fault = ServerFault::kNone;
    size_t longest = 0;
    for (const auto& [path, current] : faults_) {
        if (path.size() < longest || !StartsWith(target.path, path)) continue;
        longest = path.size();
        fault = current;
    }
    return fault;
}

WebAnswer Site::Answer(const std::string& method, const RequestTarget& target, ServerFault fault) {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (fault == ServerFault::kNotFound) return Page(404, "The page was not found.");
    if (const auto fixed = fixed_.find(target.path); fixed != fixed_.end()) return {200, "text/plain", fixed->second};
    if (method == "POST")
        return target.path == kChoosePath ? Choose(target) : Page(404, "Nothing takes a choice here.");
    if (target.path == kProductsPath) return Products(target);
    if (target.path == catalogue_.dictionary().path) return File(catalogue_.dictionary().file);
    if (target.path == catalogue_.database().path) return File(catalogue_.database().file);
    if (StartsWith(target.path, kExportPath)) return Result(target.path);
    return Page(404, "There is no such page.");
}

WebAnswer Site::Products(const RequestTarget& target) const {
    if (target.Value("action") != "ljudprog") return Page(400, "The action is not known.");
    if (!IsSessionIdentifier(target.Value("klsid"))) return Page(400, "The session identifier is not valid.");
    const Duct duct{Number(target.Value("diameter")), Number(target.Value("width")), Number(target.Value("height")),
                    Number(target.Value("airflow"))};
    return {200, "text/xml; charset=utf-8", catalogue_.ProductsPage(duct)};
}

WebAnswer Site::Choose(const RequestTarget& target) {
    const std::string session = target.Value("klsid");
    if (!IsSessionIdentifier(session)) return Page(400, "The session identifier is not valid.");
    const std::vector<std::string> products = Split(target.Value("product"), ',');
    for (const std::string& product : products)
        if (!catalogue_.Find(product)) return Page(404, "There is no such product.");
    choices_[session] = products;
    return {200, "text/plain", "published\n"};
}

WebAnswer Site::Result(const std::string& path) const {
    const std::string session = path.substr(sizeof kExportPath - 1, 32);
    if (!IsSessionIdentifier(session) || path != kExportPath + session + kExportEnding)
        return Page(400, "The session identifier is not valid.");
    const auto choice = choices_.find(session);
    if (choice == choices_.end()) return Page(404, "Nothing has been chosen in this session.");
    const std::string body = instead_.empty() ? catalogue_.Result(choice->second, server_, rootTexts_) : instead_;
    return {200, "text/xml; charset=utf-8", body};
}

void Site::SetFault(const std::string& path, ServerFault fault) {
    const std::lock_guard<std::mutex> lock(mutex_);
    faults_[path] = fault;
}

void Site::Serve(const std::string& path, const std::string& body) {
    const std::lock_guard<std::mutex> lock(mutex_);
    fixed_[path] = body;
}

void Site::ServeRaw(const std::string& path, const std::string& bytes) {
    const std::lock_guard<std::mutex> lock(mutex_);
    raw_[path] = bytes;
}

std::optional<std::string> Site::Raw(const RequestTarget& target) const {
    const std::lock_guard<std::mutex> lock(mutex_);
    for (const auto& [path, bytes] : raw_)
        if (StartsWith(target.path, path)) return bytes;
    return std::nullopt;
}

void Site::PublishWith(const std::string& elementName, const std::string& text) {
    const std::lock_guard<std::mutex> lock(mutex_);
    rootTexts_.emplace_back(elementName, text);
}

void Site::PublishInstead(const std::string& body) {
    const std::lock_guard<std::mutex> lock(mutex_);
    instead_ = body;
}

void Site::Reset() {
    const std::lock_guard<std::mutex> lock(mutex_);
    faults_.clear();
    fixed_.clear();
    raw_.clear();
    rootTexts_.clear();
    instead_.clear();
}

std::vector<std::string> Site::requests() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return requests_;
}

}  // namespace bench
