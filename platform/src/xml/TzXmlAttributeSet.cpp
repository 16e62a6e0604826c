// SPDX-License-Identifier: MIT
#include <tz/xml/TzXmlAttributeSet.h>

#include <set>
#include <tuple>
#include <utility>

namespace {

/// URI and local part of a wanted name.
struct Key {
    std::string_view uri;
    std::string_view localName;
};

Key keyOf(const TzXmlAttribute& attribute) noexcept {
    return {attribute.getName().getUri(), attribute.getName().getLocalName()};
}

bool less(const Key& left, const Key& right) noexcept {
    return std::tie(left.localName, left.uri) < std::tie(right.localName, right.uri);
}

} // namespace

/// Positions ordered by name. A tree and not a hash table, so that chosen names cannot make it
/// slow; it holds positions and no texts, so that attributes may move when the list grows.
class TzXmlAttributeSet::Index {
public:
    explicit Index(const std::vector<TzXmlAttribute>& attributes) : positions_(Less{&attributes}) {
        for (std::size_t i = 0; i < attributes.size(); ++i) {
            positions_.insert(i);
        }
    }

    void add(std::size_t position) { positions_.insert(position); }

    std::size_t find(const Key& key, std::size_t none) const {
        const auto found = positions_.find(key);
        return found == positions_.end() ? none : *found;
    }

private:
    struct Less {
        using is_transparent = void;
        const std::vector<TzXmlAttribute>* attributes;

        bool operator()(std::size_t left, std::size_t right) const {
            return less(keyOf((*attributes)[left]), keyOf((*attributes)[right]));
        }
        bool operator()(std::size_t left, const Key& right) const {
            return less(keyOf((*attributes)[left]), right);
        }
        bool operator()(const Key& left, std::size_t right) const {
            return less(left, keyOf((*attributes)[right]));
        }
    };

    std::set<std::size_t, Less> positions_;
};

TzXmlAttributeSet::List::List() noexcept = default;

// An index speaks of positions in the list it was made for.
TzXmlAttributeSet::List::List(const List& other) : attributes(other.attributes) {}

TzXmlAttributeSet::List::~List() = default;

TzXmlAttributeSet::TzXmlAttributeSet(const TzXmlAttributeSet& other)
    : list_(other.empty() ? nullptr : std::make_unique<List>(*other.list_)) {}

TzXmlAttributeSet::TzXmlAttributeSet(TzXmlAttributeSet&& other) noexcept = default;

TzXmlAttributeSet& TzXmlAttributeSet::operator=(const TzXmlAttributeSet& other) {
    if (this != &other) {
        *this = TzXmlAttributeSet(other);
    }
    return *this;
}

TzXmlAttributeSet& TzXmlAttributeSet::operator=(TzXmlAttributeSet&& other) noexcept {
    list_ = std::exchange(other.list_, nullptr);
    return *this;
}

TzXmlAttributeSet::~TzXmlAttributeSet() = default;

TzXmlAttributeSet::const_iterator TzXmlAttributeSet::findByIndex(const TzXmlNamespace& nameSpace,
                                                                 std::string_view localName) const {
    if (list_->index == nullptr) {
        list_->index = std::make_unique<Index>(list_->attributes);
    }
    return first() + list_->index->find({nameSpace.getUri(), localName}, size());
}

TzXmlAttributeSet::iterator TzXmlAttributeSet::find(const TzXmlNamespace& nameSpace,
                                                    std::string_view localName) {
    // An index made now would serve this look-up only.
    const bool indexed = list_ != nullptr && list_->index != nullptr;
    const const_iterator found =
        indexed ? findByIndex(nameSpace, localName) : findInTurn(nameSpace, localName);
    forgetIndex();
    return first() + (found - first());
}

TzXmlAttributeSet::iterator TzXmlAttributeSet::find(const TzXmlName& name) {
    return find(name.getNamespace(), name.getLocalName());
}

TzXmlAttributeSet::const_iterator TzXmlAttributeSet::find(const TzXmlName& name) const {
    return find(name.getNamespace(), name.getLocalName());
}

TzXmlAttributeSet::iterator TzXmlAttributeSet::find(const TzXmlAttribute& attribute) {
    const iterator found = find(attribute.getName());
    return found != end() && found->getValue() == attribute.getValue() ? found : end();
}

TzXmlAttributeSet::const_iterator TzXmlAttributeSet::find(const TzXmlAttribute& attribute) const {
    const const_iterator found = find(attribute.getName());
    return found != end() && found->getValue() == attribute.getValue() ? found : end();
}

TzXmlAttributeSet::iterator TzXmlAttributeSet::findDeclaration(std::string_view prefix) {
    return find(TzXmlNamespace::getXmlns(), prefix);
}

void TzXmlAttributeSet::add(TzXmlAttribute attribute) {
    const TzXmlName& name = attribute.getName();
    if (name.getLocalName() == "xmlns" && name.getNamespace().isEmpty()) {
        attribute.setName(TzXmlName({}, TzXmlNamespace::getXmlns()));
    }
    const const_iterator found = std::as_const(*this).find(name);
    if (found == std::as_const(*this).end()) {
        append(std::move(attribute));
    } else {
        first()[found - first()] = std::move(attribute);
    }
}

void TzXmlAttributeSet::add(TzXmlName name, TzCString value) {
    add(TzXmlAttribute(std::move(name), std::move(value)));
}

void TzXmlAttributeSet::addDeclaration(const TzXmlNamespace& declared) {
    add(TzXmlName(declared.getPrefix(), TzXmlNamespace::getXmlns()), declared.getUri());
}

std::vector<TzXmlAttribute>& TzXmlAttributeSet::made() {
    if (list_ == nullptr) {
        list_ = std::make_unique<List>();
    }
    return list_->attributes;
}

void TzXmlAttributeSet::append(TzXmlAttribute attribute) {
    std::vector<TzXmlAttribute>& attributes = made();
    // Out of the list meanwhile, so that an index that could not take the name is gone.
    std::unique_ptr<Index> index = std::move(list_->index);
    attributes.push_back(std::move(attribute));
    if (index != nullptr) {
        index->add(size() - 1);
        list_->index = std::move(index);
    }
}

void TzXmlAttributeSet::erase(iterator position) {
    forgetIndex();
    list_->attributes.erase(list_->attributes.begin() + (position - first()));
}

void TzXmlAttributeSet::erase(const TzXmlName& name) {
    const iterator found = find(name);
    if (found != end()) {
        erase(found);
    }
}

void TzXmlAttributeSet::clear() noexcept {
    forgetIndex();
    if (list_ != nullptr) {
        list_->attributes.clear();
    }
}

void TzXmlAttributeSet::dropIndex() noexcept { list_->index.reset(); }
