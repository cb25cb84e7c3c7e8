#pragma once

#include "fltapi/FltFile.h"
#include "fltapi/nodes/ExternalRecord.h"
#include "fltapi/nodes/FaceRecord.h"
#include "fltapi/nodes/HeaderRecord.h"
#include "fltapi/nodes/InstanceRecords.h"

#include <map>
#include <set>
#include <utility>

namespace fltapi {

/// Sums vectors over everything that it meets. What an instance or another file holds counts as often as it is shown,
/// but is walked only once: instances of instances can show a million vertices with a handful of records.
class SummingVisitor : public RecordVisitor {
public:
  SummingVisitor() { revisit = true; }

  using RecordVisitor::apply;
  void apply(InstanceReferenceRecord& reference) override
  {
    const auto* definition =
        reference.file() ? reference.file()->instanceDefinition(reference.instanceNumber()) : nullptr;
    if (definition) addShown(*definition, [&] { RecordVisitor::apply(reference); });
  }
  void apply(ExternalRecord& reference) override
  {
    const auto* header = reference.referencedFile() ? reference.referencedFile()->header() : nullptr;
    if (header) addShown(*header, [&] { reference.traverse(*this); });
  }

  const osg::Vec3d& sum() const { return total_.sum; }
  /// How many vectors were summed. A double, since instances can show more than any integer counts.
  double count() const { return total_.count; }
  /// The zero vector when there was nothing.
  osg::Vec3d mean() const { return total_.count > 0 ? total_.sum / total_.count : osg::Vec3d(); }

protected:
  void add(const osg::Vec3d& vector, double count = 1)
  {
    total_.sum += vector;
    total_.count += count;
  }

private:
  struct Total {
    osg::Vec3d sum;
    double count = 0;
  };

  template <class Walk>
  void addShown(const Record& shown, const Walk& walk)
  {
    auto known = shown_.find(&shown);
    if (known == shown_.end()) {
      const Total before = std::exchange(total_, {});
      walk();
      known = shown_.emplace(&shown, std::exchange(total_, before)).first;
    }
    add(known->second.sum, known->second.count);
  }

  Total total_;
  std::map<const Record*, Total> shown_;
};

/// Sums the positions of all vertices of the vertex lists that it meets.
class CalculatePivotVisitor : public SummingVisitor {
public:
  using SummingVisitor::apply;
  void apply(VertexListRecord& list) override
  {
    for (const auto& vertex : list.vertices())
      add(vertex->position());
  }
};

/// Sums the unit normals of all polygons that it meets.
class CalculateAverageNormalVisitor : public SummingVisitor {
public:
  using SummingVisitor::apply;
  void apply(FaceRecord& face) override
  {
    add(face.normal());
    SummingVisitor::apply(face);
  }
};

/// Transforms every vertex that it meets, each once. Normals turn with it and keep their unit length.
class TransformVerticesVisitor : public RecordVisitor {
public:
  explicit TransformVerticesVisitor(const osg::Matrixd& matrix) : matrix_(matrix) {}

  using RecordVisitor::apply;
  void apply(VertexListRecord& list) override
  {
    if (!done_.insert(&list).second) return;
    for (const auto& vertex : list.vertices()) {
      vertex->setPosition(vertex->position() * matrix_);
      if (const auto normal = vertex->normal()) {
        auto turned = osg::Matrixd::transform3x3(osg::Vec3d(*normal), matrix_);
        turned.normalize();
        vertex->setNormal(osg::Vec3f(turned));
      }
    }
  }

private:
  osg::Matrixd matrix_;
  std::set<const VertexListRecord*> done_;
};

} // namespace fltapi
