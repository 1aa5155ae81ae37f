// A scene: what stands on the screen for one picture.
#ifndef SCENE_H
#define SCENE_H

#include <memory>
#include <vector>

#include <QObject>

// Owns what a scene has put on the screen; the last made goes first.
class Stage
{
public:
    Stage() = default;
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;
    ~Stage()
    {
        while (!m_objects.empty())
            m_objects.pop_back();
    }

    template <class T, class... Arguments> T& make(Arguments&&... arguments)
    {
        auto object = std::make_unique<T>(std::forward<Arguments>(arguments)...);
        T& made = *object;
        m_objects.push_back(std::move(object));
        return made;
    }

private:
    std::vector<std::unique_ptr<QObject>> m_objects;
};

struct Scene
{
    const char* name; // of the picture's file
    void (*build)(Stage& stage);
};

// The scenes of each kind of widget.
std::vector<Scene> dialogScenes();
std::vector<Scene> formScenes();
std::vector<Scene> iconScenes();

#endif
