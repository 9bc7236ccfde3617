#include "frame/ClassID.h"

ClassID::ClassID() : m_id(s_incrementalClassID) {
    // Unsigned arithmetic: after 2^32 objects the counter wraps to 0.
    ++s_incrementalClassID;
}

ClassID::ClassID(const ClassID& other) : m_id(other.m_id) {}

ClassID& ClassID::operator=(const ClassID& other) {
    m_id = other.m_id;
    return *this;
}

ClassID& ClassID::operator=(ClassID&& other) {
    m_id = other.m_id;
    return *this;
}

ClassID::operator unsigned int() const {
    return m_id;
}
