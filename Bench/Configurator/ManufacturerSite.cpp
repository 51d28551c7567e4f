#include "ManufacturerSite.h"

#include <windows.h>
#include <wininet.h>

#include <memory>

#include "Automation.h"
#include "RequestTarget.h"
#include "tinyxml.h"

namespace {

struct InternetCloser {
    void operator()(void* handle) const { InternetCloseHandle(handle); }
};
using Internet = std::unique_ptr<void, InternetCloser>;

constexpr char kAgent[] = "Sorvik configurator";

struct Host {
    std::string name;
    INTERNET_PORT port = INTERNET_DEFAULT_HTTP_PORT;
};

bool HostOf(const std::string& address, Host& host) {
    char name[256] = "";
    URL_COMPONENTSA parts = {};
    parts.dwStructSize = sizeof parts;
    parts.lpszHostName = name;
    parts.dwHostNameLength = sizeof name;
    if (!InternetCrackUrlA(address.c_str(), 0, 0, &parts)) return false;
    host.name = name;
    host.port = parts.nPort;
    return true;
}

bool ReadAll(HINTERNET request, std::string& body) {
    char buffer[4096];
    for (;;) {
        DWORD read = 0;
        if (!InternetReadFile(request, buffer, sizeof buffer, &read)) return false;
        if (read == 0) return true;
        body.append(buffer, read);
    }
}

bool Exchange(const char* method, const std::string& address, const std::string& target, std::string& body,
              std::string& error) {
    Host host;
    if (!HostOf(address, host)) {
        error = "The address has no server name.";
        return false;
    }
    // The bench's web server is reached through the proxy in the environment variable.
    const std::string proxy = Environment("http_proxy");
    const Internet session(proxy.empty() ? InternetOpenA(kAgent, INTERNET_OPEN_TYPE_PRECONFIG, nullptr, nullptr, 0)
                                         : InternetOpenA(kAgent, INTERNET_OPEN_TYPE_PROXY, proxy.c_str(), nullptr, 0));
    const Internet connection(session ? InternetConnectA(session.get(), host.name.c_str(), host.port, nullptr, nullptr,
                                                         INTERNET_SERVICE_HTTP, 0, 0)
                                      : nullptr);
    const DWORD flags = INTERNET_FLAG_RELOAD | INTERNET_FLAG_NO_CACHE_WRITE | INTERNET_FLAG_NO_UI;
    const Internet request(
        connection ? HttpOpenRequestA(connection.get(), method, target.c_str(), nullptr, nullptr, nullptr, flags, 0)
                   : nullptr);
    if (!request || !HttpSendRequestA(request.get(), nullptr, 0, nullptr, 0)) {
        error = "The server cannot be reached.";
        return false;
    }
    DWORD status = 0;
    DWORD size = sizeof status;
    HttpQueryInfoA(request.get(), HTTP_QUERY_STATUS_CODE | HTTP_QUERY_FLAG_NUMBER, &status, &size, nullptr);
    if (!ReadAll(request.get(), body) || status != HTTP_STATUS_OK) {
        error = "The server answered with " + std::to_string(status) + '.';
        return false;
    }
    return true;
}

std::string Attribute(const TiXmlElement& element, const char* name) {
    const char* text = element.Attribute(name);
    return text ? text : "";
}

}  // namespace

bool FetchProducts(const std::string& address, std::vector<Product>& products, std::string& error) {
    products.clear();
    std::string page;
    if (!Exchange("GET", address, bench::ParseRequestTarget(address).text(), page, error)) return false;
    TiXmlDocument document;
    document.Parse(page.c_str(), nullptr, TIXML_ENCODING_UTF8);
    const TiXmlElement* root = document.RootElement();
    if (document.Error() || !root) {
        error = "The server's answer is not a list of products.";
        return false;
    }
    for (const TiXmlElement* one = root->FirstChildElement("product"); one; one = one->NextSiblingElement("product"))
        products.push_back({Attribute(*one, "id"), Attribute(*one, "code"), Attribute(*one, "length"),
                            Attribute(*one, "pressureDrop"), Attribute(*one, "attenuation250")});
    return true;
}

bool PublishChoice(const std::string& address, const std::string& products, std::string& error) {
    const bench::RequestTarget asked = bench::ParseRequestTarget(address);
    const std::string target = asked.path + "/choose?klsid=" + asked.Value("klsid") + "&product=" + products;
    std::string body;
    return Exchange("POST", address, target, body, error);
}
