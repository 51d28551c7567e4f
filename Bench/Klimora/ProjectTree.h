// The open project as one tree of named elements: drawing values ("/dwg/..."), product and system lists
// ("/Project/...") and the parts ("/Part/..." of a handle). Its XML is the project file. Invalid operations throw
// Refusal. Returned elements belong to the tree and live until it is replaced. Non-const access allows changes and
// clears the lookup cache. Contract: rows A1, A5 to A7.
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
    // Creates the state without a project: drawing values only, with an empty file name.
    ProjectTree();
    explicit ProjectTree(std::unique_ptr<TiXmlDocument> document);

    bool IsOpen() const;
    std::string Xml() const;

    TiXmlElement* Drawing();
    // Throw Refusal when no project is open.
    TiXmlElement* Project();
    TiXmlElement* Parts();

    std::vector<TiXmlElement*> AllParts();
    std::vector<std::string> Handles() const;
    const TiXmlElement* FindPart(const std::string& handle) const;  // null when there is none
    TiXmlElement* FindPart(const std::string& handle);
    TiXmlElement* Part(const std::string& handle);  // refuses an unknown handle
    static std::string Handle(const TiXmlElement* part);

    // An empty `part` addresses drawing and project. Count(...) of missing elements is 0. Reading a whole list by index
    // costs no more than one pass over it.
    std::string Attribute(const std::string& part, const std::string& path) const;
    // Writes a value that exists or that clients may add.
    void SetAttribute(const std::string& part, const std::string& path, const std::string& value);

    // Returns the product list of a class, created when `make` is set; null when there is none.
    TiXmlElement* ProductClass(const std::string& className, bool make);
    // Returns the product with that class and user code; null when there is none.
    TiXmlElement* Product(const std::string& className, const std::string& userCode);
    TiXmlElement* System(const std::string& id);  // null when there is none

 private:
    using Elements = std::vector<TiXmlElement*>;
    // Elements looked up since the tree was last accessed for changes.
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

// Reads a project in its file format. Throws Refusal with the reason for an invalid one. Fills in the system type of
// each part.
ProjectTree ReadProject(const std::string& xml);

}  // namespace bench::klimora
