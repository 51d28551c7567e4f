// The part of TinyXML++ that this system uses, implemented on TinyXML with TinyXML++'s names. Look-ups throw when
// nothing is found, unless an argument says otherwise. The Document owns the Element* that a look-up returns; the
// pointer is valid until the document ends or the element is replaced or removed. Failures throw ticpp::Exception,
// whose m_details name the element. One thread at a time.
#pragma once

#include <tinyxml.h>

#include <cstddef>
#include <deque>
#include <exception>
#include <iterator>
#include <memory>
#include <string>

namespace ticpp {

class Document;
class Element;

class Exception : public std::exception {
 public:
    explicit Exception(const std::string& details) : m_details(details) {}
    const char* what() const noexcept override { return m_details.c_str(); }

    std::string m_details;
};

namespace detail {
// The wrapped elements of one document. A TinyXML node has a pointer to its wrapper as user data, so each wrapper is
// created once and found without a search.
class Pool;
}  // namespace detail

class Node {
 public:
    Node(const Node&) = delete;
    Node& operator=(const Node&) = delete;
    virtual ~Node() = default;

    // Returns the element's name.
    std::string Value() const { return node_->ValueStr(); }

    // Return the first child element, of any name or of one name.
    Element* FirstChildElement(bool throwIfNoChildren = true) const;
    // The overloads for const char* exist because a literal would convert to bool rather than to std::string.
    Element* FirstChildElement(const std::string& value, bool throwIfNoChildren = true) const;
    Element* FirstChildElement(const char* value, bool throwIfNoChildren = true) const {
        return FirstChildElement(std::string(value), throwIfNoChildren);
    }
    Element* NextSiblingElement(bool throwIfNoSiblings = true) const;
    Element* NextSiblingElement(const std::string& value, bool throwIfNoSiblings = true) const;
    Element* NextSiblingElement(const char* value, bool throwIfNoSiblings = true) const {
        return NextSiblingElement(std::string(value), throwIfNoSiblings);
    }

    // Appends a copy of `addThis` as the last child and returns the copy.
    Element* InsertEndChild(const Element& addThis);
    void RemoveChild(Element* removeThis);

 protected:
    Node() = default;

    TiXmlNode* node_ = nullptr;
    detail::Pool* pool_ = nullptr;

 private:
    Element* Wrap(TiXmlElement* element) const;
    Element* Found(TiXmlElement* element, const char* relation, const std::string& value, bool throwIfMissing) const;

    friend class Document;
    friend class detail::Pool;
};

class Element : public Node {
 public:
    // Creates a separate element, to be copied into a document with InsertEndChild.
    explicit Element(const std::string& value);

    // Returns the text of the element's first child. Without text, throws or returns an empty string.
    std::string GetText(bool throwIfNotFound = true) const {
        const char* text = element()->GetText();
        if (!text && throwIfNotFound) throw Exception("Element <" + Value() + "> has no text");
        return text ? text : "";
    }

    // Sets the text that GetText returns. Child elements stay.
    void SetText(const std::string& text) {
        TiXmlNode* const first = element()->FirstChild();
        if (first && first->ToText())
            first->SetValue(text);
        else if (first)
            element()->InsertBeforeChild(first, TiXmlText(text));
        else
            element()->LinkEndChild(new TiXmlText(text));
    }

    bool HasAttribute(const std::string& name) const { return element()->Attribute(name) != nullptr; }

    std::string GetAttribute(const std::string& name, bool throwIfNotFound = true) const {
        const std::string* value = element()->Attribute(name);
        if (!value && throwIfNotFound) throw Exception("Element <" + Value() + "> has no attribute '" + name + "'");
        return value ? *value : std::string();
    }

    void SetAttribute(const std::string& name, const std::string& value) { element()->SetAttribute(name, value); }

    // Returns the element and its contents without line breaks.
    std::string ToString() const {
        TiXmlPrinter printer;
        printer.SetStreamPrinting();
        element()->Accept(&printer);
        return printer.Str();
    }

 private:
    Element(TiXmlElement* element, detail::Pool* pool) {
        node_ = element;
        pool_ = pool;
    }

    TiXmlElement* element() const { return static_cast<TiXmlElement*>(node_); }

    std::unique_ptr<TiXmlElement> own_;
    std::unique_ptr<detail::Pool> ownPool_;

    friend class Node;
    friend class detail::Pool;
};

namespace detail {
class Pool {
 public:
    Element* Wrap(TiXmlElement* element) {
        if (!element) return nullptr;
        if (!element->GetUserData()) {
            elements_.push_back(std::unique_ptr<Element>(new Element(element, this)));
            element->SetUserData(elements_.back().get());
        }
        return static_cast<Element*>(element->GetUserData());
    }

 private:
    std::deque<std::unique_ptr<Element>> elements_;
};

// TinyXML copies user data with a node, so a copy would point to the original's wrapper.
inline void ForgetUserData(TiXmlNode* node) {
    node->SetUserData(nullptr);
    for (TiXmlNode* child = node->FirstChild(); child; child = child->NextSibling())
        ForgetUserData(child);
}
}  // namespace detail

inline Element::Element(const std::string& value) : own_(new TiXmlElement(value)), ownPool_(new detail::Pool) {
    node_ = own_.get();
    pool_ = ownPool_.get();
}

class Document : public Node {
 public:
    Document() : Document(std::string()) {}
    explicit Document(const std::string& documentName)
        : document_(new TiXmlDocument(documentName)), elements_(new detail::Pool) {
        node_ = document_.get();
        pool_ = elements_.get();
    }

    // Reads a file. Throws when it cannot be read or parsed.
    void LoadFile(const std::string& fileName) {
        if (!document_->LoadFile(fileName)) throw Exception(ErrorDetails(fileName));
    }

    // Parses a text; `name` names it in the exception.
    void Parse(const std::string& xml, const std::string& name = "text") {
        document_->Clear();
        document_->ClearError();
        document_->Parse(xml.c_str());
        if (document_->Error()) throw Exception(ErrorDetails(name));
    }

    std::string ToString() const {
        TiXmlPrinter printer;
        printer.SetIndent("  ");
        document_->Accept(&printer);
        return printer.Str();
    }

 private:
    std::string ErrorDetails(const std::string& source) const {
        std::string details = source + ": " + document_->ErrorDesc();
        if (document_->ErrorRow() > 0) {
            details += " (line " + std::to_string(document_->ErrorRow()) + ", column " +
                       std::to_string(document_->ErrorCol()) + ")";
        }
        return details;
    }

    std::unique_ptr<TiXmlDocument> document_;
    std::unique_ptr<detail::Pool> elements_;
};

// Iterates over the child elements of a parent, of one name or of any:
//   Iterator<Element> child("device");
//   for (child = child.begin(root); child != child.end(); ++child) …
template <class T>
class Iterator {
 public:
    using iterator_category = std::forward_iterator_tag;
    using value_type = T;
    using difference_type = std::ptrdiff_t;
    using pointer = T*;
    using reference = T&;

    explicit Iterator(const std::string& value = std::string()) : value_(value) {}

    Iterator begin(const Node* parent) const {
        Iterator first(value_);
        first.current_ = value_.empty() ? parent->FirstChildElement(false) : parent->FirstChildElement(value_, false);
        return first;
    }
    Iterator end() const { return Iterator(value_); }

    Iterator& operator++() {
        current_ = value_.empty() ? current_->NextSiblingElement(false) : current_->NextSiblingElement(value_, false);
        return *this;
    }
    bool operator==(const Iterator& other) const { return current_ == other.current_; }
    bool operator!=(const Iterator& other) const { return current_ != other.current_; }
    T& operator*() const { return *current_; }
    T* operator->() const { return current_; }
    T* Get() const { return current_; }

 private:
    std::string value_;
    T* current_ = nullptr;
};

inline Element* Node::Wrap(TiXmlElement* element) const {
    return pool_->Wrap(element);
}

inline Element* Node::Found(TiXmlElement* element, const char* relation, const std::string& value,
                            bool throwIfMissing) const {
    if (!element && throwIfMissing) {
        const std::string wanted = value.empty() ? "element" : "element <" + value + ">";
        const bool isDocument = node_->Type() == TiXmlNode::TINYXML_DOCUMENT;
        throw Exception((isDocument ? "The document" : "Element <" + Value() + ">") + " has no " + relation + " " +
                        wanted);
    }
    return Wrap(element);
}

inline Element* Node::FirstChildElement(bool throwIfNoChildren) const {
    return Found(node_->FirstChildElement(), "child", std::string(), throwIfNoChildren);
}

inline Element* Node::FirstChildElement(const std::string& value, bool throwIfNoChildren) const {
    return Found(node_->FirstChildElement(value), "child", value, throwIfNoChildren);
}

inline Element* Node::NextSiblingElement(bool throwIfNoSiblings) const {
    return Found(node_->NextSiblingElement(), "further", std::string(), throwIfNoSiblings);
}

inline Element* Node::NextSiblingElement(const std::string& value, bool throwIfNoSiblings) const {
    return Found(node_->NextSiblingElement(value), "further", value, throwIfNoSiblings);
}

inline Element* Node::InsertEndChild(const Element& addThis) {
    TiXmlNode* added = node_->InsertEndChild(*addThis.element());
    if (!added) throw Exception("Element <" + addThis.Value() + "> could not be added");
    detail::ForgetUserData(added);
    return Wrap(added->ToElement());
}

inline void Node::RemoveChild(Element* removeThis) {
    if (!node_->RemoveChild(removeThis->node_))
        throw Exception("Element <" + removeThis->Value() + "> could not be removed");
}

}  // namespace ticpp
