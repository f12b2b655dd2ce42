#include "StringUtils.h"

namespace StringUtils {

QStringList SplitIntoCharacters(const QString& text)
{
    QStringList characters;
    characters.reserve(text.size());
    for (QChar c : text)
        characters.append(QString(c));
    return characters;
}

QString JoinCharacters(const QStringList& characters, int count)
{
    QString text;
    const int n = std::min<int>(count, characters.size());
    for (int i = 0; i < n; ++i)
        text += characters.at(i);
    return text;
}

QString StripControlCharacters(const QString& text)
{
    QString kept;
    kept.reserve(text.size());
    for (QChar c : text) {
        if (c.unicode() > 31)
            kept.append(c);
    }
    return kept;
}

QString SpacesToTabs(const QString& text)
{
    QString result = text;
    const qsizetype n = result.size();
    qsizetype i = 0;
    while (i < n && result.at(i) == QLatin1Char(' '))
        ++i;
    bool previousWasSpace = false;
    while (i < n) {
        const QChar c = result.at(i);
        if (c == Bel)
            break;
        if (c == QLatin1Char(' ')) {
            if (!previousWasSpace) {
                result[i] = Tab;
                previousWasSpace = true;
                i += 2; // the character after a converted space is neither examined nor changed
                continue;
            }
        } else {
            previousWasSpace = false;
        }
        ++i;
    }
    return result;
}

} // namespace StringUtils
