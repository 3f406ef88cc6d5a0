// Counted objects that several holders share.
#pragma once

#include "toolkit/base/QsdExport.h"

#include <cstdint>
#include <utility>

/// Base of every shared graphic object (colours, fonts, line styles, patterns, palettes). An object lives as long as
/// somebody holds a reference, so while it is held its address identifies it and nothing else.
/// A new object has one reference, which belongs to whoever made it. Not for use from several threads at once.
class QSD_API QsdResource {
public:
    QsdResource(const QsdResource&) = delete;
    QsdResource& operator=(const QsdResource&) = delete;

    /// Takes one more reference.
    void reference() const { ++_references; }
    /// Gives one reference back; the last one deletes the object.
    virtual void destroy() const;
    /// Number of references held.
    [[nodiscard]] std::uint32_t references() const { return _references; }

protected:
    QsdResource() = default;
    virtual ~QsdResource() = default;

private:
    mutable std::uint32_t _references = 1;
};

/// Holds one reference to a resource, or none.
template <class Resource>
class QsdHandle {
public:
    QsdHandle() = default;
    /// Shares `resource` (null allowed): takes a reference of its own.
    explicit QsdHandle(Resource* resource) : _resource(resource)
    {
        if (_resource != nullptr) {
            _resource->reference();
        }
    }
    /// Takes over the reference that the caller holds, typically that of a new object.
    [[nodiscard]] static QsdHandle Adopt(Resource* resource)
    {
        QsdHandle handle;
        handle._resource = resource;
        return handle;
    }
    /// Holds the same resource by a reference of its own.
    QsdHandle(const QsdHandle& other) : QsdHandle(other._resource) {}
    /// Takes the reference of `other`, which is null then.
    QsdHandle(QsdHandle&& other) noexcept : _resource(std::exchange(other._resource, nullptr)) {}
    /// Gives back its reference and takes that of `other`.
    QsdHandle& operator=(QsdHandle other) noexcept
    {
        std::swap(_resource, other._resource);
        return *this;
    }
    ~QsdHandle()
    {
        if (_resource != nullptr) {
            _resource->destroy();
        }
    }

    /// The resource, which stays the handle's; null when there is none.
    [[nodiscard]] Resource* get() const { return _resource; }
    /// The resource, for calls of its functions.
    Resource* operator->() const { return _resource; }
    /// The resource, which must be there.
    Resource& operator*() const { return *_resource; }
    /// Whether there is a resource.
    explicit operator bool() const { return _resource != nullptr; }

private:
    Resource* _resource = nullptr;
};

// Constructors take numbers of 16 bits. Beyond the template a literal is an int like any other, so that compilers would
// warn of each.
#ifdef __GNUC__
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"
#endif
/// Makes a resource and holds it: `QsdMake<QsdColor>(0, 0, 65535)`. The handle owns the only reference. Passes on what
/// the constructor throws.
template <class Resource, class... Arguments>
[[nodiscard]] QsdHandle<Resource> QsdMake(Arguments&&... arguments)
{
    return QsdHandle<Resource>::Adopt(new Resource(std::forward<Arguments>(arguments)...));
}
#ifdef __GNUC__
#pragma GCC diagnostic pop
#endif
