// The open project as one tree of named elements: drawing values ("/dwg/..."), product and system lists
// ("/Project/...") and the parts ("/Part/..." of a handle). Its text form is the project file. Operations that cannot
// be done throw Refusal. Elements that are handed out stay the tree's and live until it is replaced; who wants to
// change them asks a tree that is not const, which then forgets the places that it had looked up. Contract: rows A1, A5
// to A7.
#pragma once

#include <tinyxml.h>

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "AttributePath.h"

namespace bench::klimora {

class ProjectTree {
 public:
    // No project is open: there are drawing values only, and the file name is empty.
    ProjectTree();
    explicit ProjectTree(std::unique_ptr<TiXmlDocument> document);

    bool IsOpen() const;
    std::string Xml() const;

    TiXmlElement* Drawing();
    // The two below refuse when no project is open.
    TiXmlElement* Project();
    TiXmlElement* Parts();

    std::vector<TiXmlElement*> AllParts();
    std::vector<std::string> Handles() const;
    const TiXmlElement* FindPart(const std::string& handle) const;  // null when there is none
    TiXmlElement* FindPart(const std::string& handle);
    TiXmlElement* Part(const std::string& handle);  // refuses an unknown handle
    static std::string Handle(const TiXmlElement* part);

    // An empty `part` addresses drawing and project. Count(...) of elements that are not there is 0. A list may be read
    // by index, element by element, at no more than the cost of one walk.
    std::string Attribute(const std::string& part, const std::string& path) const;
    // Writes a value that is there or that clients may add.
    void SetAttribute(const std::string& part, const std::string& path, const std::string& value);

    // Product list of a class, made when `make` is set; null when there is none.
    TiXmlElement* ProductClass(const std::string& className, bool make);
    // Product of that class and user code, null when there is none.
    TiXmlElement* Product(const std::string& className, const std::string& userCode);
    TiXmlElement* System(const std::string& id);  // null when there is none

 private:
    using Elements = std::vector<const TiXmlElement*>;
    // Elements as they were looked up since the tree was last given out for changes.
    struct Places {
        std::map<std::pair<const TiXmlElement*, std::string>, Elements> children;
        std::map<std::string, const TiXmlElement*> parts;
    };

    const TiXmlElement* Top(const char* name) const;
    const TiXmlElement* RootOf(const std::string& part, const AttributePath& path, const std::string& text) const;
    Elements Find(const TiXmlElement* from, const AttributePath& path) const;
    TiXmlElement* ToChange(const TiXmlElement* element);

    std::unique_ptr<TiXmlDocument> document_;
    mutable Places places_;
};

}  // namespace bench::klimora
