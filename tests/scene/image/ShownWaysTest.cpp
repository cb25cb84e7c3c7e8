#include "scene/image/ShownWays.h"

#include "fltapi/Host.h"
#include "tests/scene/image/SyncFixture.h"

#include <osg/ref_ptr>

using namespace nalt;
using namespace nalt::tests;
using namespace fltapi;

namespace {

using Group = osg::ref_ptr<osg::Group>;

/// Each group shows the next one `times` times.
std::vector<Group> chain(int length, int times)
{
  std::vector<Group> groups;
  for (int i = 0; i < length; ++i) {
    groups.emplace_back(new osg::Group);
    for (int k = 0; i > 0 && k < times; ++k) {
      const Group reference = new osg::Group;
      groups[static_cast<std::size_t>(i) - 1]->addChild(reference);
      reference->addChild(groups.back());
    }
  }
  return groups;
}

SharedGroups sharedOf(const std::vector<Group>& groups)
{
  SharedGroups shared;
  for (std::size_t i = 1; i < groups.size(); ++i)
    shared.insert(groups[i]);
  return shared;
}

/// Notes what the database warns of.
class Listener : public Host {
public:
  Listener() : before_(Host::install(this)) {}
  ~Listener() override { Host::install(before_); }
  void warning(const std::string& text) override { warnings.push_back(text); }
  std::vector<std::string> warnings;

private:
  Host* before_;
};

/// Instances of which each shows the next one twice.
class NestedInstances : public SyncFixture {
protected:
  static constexpr int levels = 60;
  NestedInstances()
  {
    for (int number = 0; number < levels; ++number)
      build.definition(number);
    for (int number = 0; number + 1 < levels; ++number) {
      for (auto& reference : references_[number])
        reference = &build.reference(definition(number), number + 1);
    }
    build.reference(group, 0);
  }
  InstanceDefinitionRecord& definition(int number) { return *build.file().instanceDefinition(number); }
  InstanceReferenceRecord& second(int number) { return *references_[number][1]; }
  bool shows(int number)
  {
    const auto& body = *definition(number).primaryChildAt(0);
    const auto& face = static_cast<FaceRecord&>(*body.primaryChildAt(0));
    const auto* polygon = sync().polygonOf(face);
    return polygon && isAbove(*sync().root(), *polygon->geometry());
  }

private:
  InstanceReferenceRecord* references_[levels][2] = {};
};

} // namespace

TEST(ShownWays, OfAFewAreNoneTooMany)
{
  const auto groups = chain(5, 2);
  EXPECT_TRUE(shownTooOften(*groups.front(), sharedOf(groups), 80).empty());
}

TEST(ShownWays, WhatIsFarthestFromTheRootIsCutFirst)
{
  const auto groups = chain(60, 2);
  const auto cut = shownTooOften(*groups.front(), sharedOf(groups), 80);
  // Each has 3 nodes. Those of the second come once again, those of the third three times: 3 + 9 + 21 + 45 is 78.
  EXPECT_EQ(cut, std::vector<const osg::Node*>{groups[5]});
}

TEST(ShownWays, WhatIsShownSeldomStaysBesideWhatIsCut)
{
  const auto groups = chain(60, 2);
  const Group seldom = new osg::Group;
  groups.front()->addChild(seldom);
  groups.front()->insertChild(0, seldom);
  auto shared = sharedOf(groups);
  shared.insert(seldom);
  const auto cut = shownTooOften(*groups.front(), shared, 80);
  EXPECT_EQ(cut, std::vector<const osg::Node*>{groups[5]});
}

TEST(ShownWays, WhatIsShownOnceStaysHoweverLargeItIs)
{
  const auto groups = chain(60, 1);
  EXPECT_TRUE(shownTooOften(*groups.front(), sharedOf(groups), 1).empty());
}

TEST_F(NestedInstances, AreShownAsFarAsTheyCanBeDrawn)
{
  Listener listener;
  build.file().setQuiet(false);
  sync();
  EXPECT_TRUE(shows(0));
  EXPECT_TRUE(shows(10));
  EXPECT_FALSE(shows(levels - 1));
  EXPECT_EQ(listener.warnings, std::vector<std::string>{"References to references show the same things more often than "
                                                        "can be drawn. Some are left out."});
}

TEST_F(NestedInstances, AreAllShownOnceTheyAreFewEnough)
{
  sync();
  std::vector<InstanceReferenceRecord*> removed;
  for (int number = 0; number + 5 < levels; ++number)
    removed.push_back(&second(number));
  sync().remove(removed);
  for (auto* reference : removed)
    reference->parent()->removeChild(reference);
  EXPECT_TRUE(shows(levels - 1));
  expectLikeFresh();
}
