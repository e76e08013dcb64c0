#ifndef ZO_TESSERA_TESTS_CONTAINERS_WITNESS_H
#define ZO_TESSERA_TESTS_CONTAINERS_WITNESS_H

#include <ostream>
#include <string>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/TBasicElement.h>

/// A string that writes down what is done to it: `~a;`, `clone a;`, `compare a;`, `write a;`.
class Witness : public zo::Tessera::TBasicElement<std::string> {
public:
    Witness(const std::string& name, std::string& log) : TBasicElement(name), m_log(log) {}
    Witness(const Witness&) = default;
    ~Witness() override { note("~"); }

    Witness* clone() const override {
        note("clone ");
        return new Witness(*this);
    }
    int compare(const Element& other) const override {
        note("compare ");
        return TBasicElement::compare(other);
    }
    using TBasicElement::writeTo;
    std::ostream& writeTo(std::ostream& out) const override {
        note("write ");
        return TBasicElement::writeTo(out);
    }

private:
    void note(const char* what) const { m_log += what + value() + ";"; }

    std::string& m_log;
};

/// An array that writes down what is done to it, with how many children it has then: `~list 2;`,
/// `clone list 2;`, `compare list 2;`.
class ArrayWitness : public zo::Tessera::Array {
public:
    explicit ArrayWitness(std::string& log) : m_log(log) {}
    ArrayWitness(const ArrayWitness&) = default;
    ~ArrayWitness() override { note("~"); }

    ArrayWitness* clone() const override {
        note("clone ");
        return new ArrayWitness(*this);
    }
    using Array::compare;
    int compare(const Element& other) const override {
        note("compare ");
        return Array::compare(other);
    }

private:
    void note(const char* what) const { m_log += what + ("list " + std::to_string(size())) + ";"; }

    std::string& m_log;
};

/// Cannot be cloned: throws the int 1.
class Uncopyable : public zo::Tessera::TBasicElement<bool> {
public:
    Uncopyable() : TBasicElement(true) {}
    Uncopyable* clone() const override { throw 1; }
};

#endif
