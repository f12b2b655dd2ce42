#pragma once

#include "base/Services.h"

#include <vector>

// Records the programs started and the documents opened; answers with a scripted result.
class FakeLauncher : public Launcher {
public:
    struct Start {
        QString program;
        QStringList arguments;
    };

    bool startDetached(const QString& program, const QStringList& arguments) override
    {
        starts.push_back({ program, arguments });
        return startResult;
    }
    bool openDocument(const QString& path) override
    {
        documents << path;
        return openResult;
    }

    std::vector<Start> starts;
    QStringList documents;
    bool startResult = true;
    bool openResult = true;
};
