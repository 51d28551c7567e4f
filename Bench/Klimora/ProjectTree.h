// The open project as one tree of named elements: drawing values ("/dwg/..."), product and system lists
// ("/Project/...") and the parts ("/Part/..." of a handle). Its text form is the project file. Operations that cannot
// be done throw Refusal; elements that are handed out stay the tree's and live until it is replaced.
// Contract: rows A1, A5 to A7.
#pragma once

#include <tinyxml.h>

#include <memory>
#include <string>
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

    TiXmlElement* Drawing() const;
    // The two below refuse when no project is open.
    TiXmlElement* Project() const;
    TiXmlElement* Parts() const;

    std::vector<TiXmlElement*> AllParts() const;
    std::vector<std::string> Handles() const;
    TiXmlElement* FindPart(const std::string& handle) const;  // null when there is none
    TiXmlElement* Part(const std::string& handle) const;      // refuses an unknown handle
    static std::string Handle(const TiXmlElement* part);

    // An empty `part` addresses drawing and project. Count(...) of elements that are not there is 0.
    std::string Attribute(const std::string& part, const std::string& path) const;
    // Writes a value that is there or that clients may add.
    void SetAttribute(const std::string& part, const std::string& path, const std::string& value);

    // Product list of a class, made when `make` is set; null when there is none.
    TiXmlElement* ProductClass(const std::string& className, bool make) const;
    // Product of that class and user code, null when there is none.
    TiXmlElement* Product(const std::string& className, const std::string& userCode) const;
    TiXmlElement* System(const std::string& id) const;  // null when there is none

 private:
    struct Place {
        TiXmlElement* root;
        AttributePath path;
    };
    Place Locate(const std::string& part, const std::string& path) const;

    std::unique_ptr<TiXmlDocument> document_;
};

}  // namespace bench::klimora
