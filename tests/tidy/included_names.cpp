// A plug-in of Clang's: whatever a file names is declared in the file itself or in what it includes. A text
// of several files would compile with the includes of only one of them; beside such a text stands which of
// its lines come from which file, and what that file includes.

#include <algorithm>
#include <clang/AST/ASTConsumer.h>
#include <clang/AST/ASTContext.h>
#include <clang/AST/DeclTemplate.h>
#include <clang/AST/RecursiveASTVisitor.h>
#include <clang/Basic/SourceManager.h>
#include <clang/Frontend/CompilerInstance.h>
#include <clang/Frontend/FrontendPluginRegistry.h>
#include <clang/Lex/PPCallbacks.h>
#include <clang/Lex/Preprocessor.h>
#include <fstream>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace {

using clang::FileEntry;
using Files = std::set<const FileEntry*>;

/// A file of a text: where it begins, and what it includes, as it is written there.
struct Part {
    unsigned firstLine = 0;
    std::vector<std::string> includes;
};

/// Lines of two kinds: a number begins a part; an include, in its brackets or quotes, belongs to the last
/// one.
std::vector<Part> partsOf(const std::string& text) {
    std::vector<Part> parts;
    std::ifstream lines(text + ".includes");
    for (std::string line; std::getline(lines, line);) {
        if (line.front() == '<' || line.front() == '"') {
            parts.back().includes.push_back(line);
        } else {
            parts.push_back({static_cast<unsigned>(std::stoul(line)), {}});
        }
    }
    return parts;
}

struct MacroUse {
    clang::SourceLocation place;
    std::string name;
    const FileEntry* definedIn;
};

/// What the preprocessor sees.
struct Seen {
    std::map<const FileEntry*, Files> includes;
    std::map<std::string, const FileEntry*> spelled;
    std::vector<MacroUse> macros;
};

class Watch : public clang::PPCallbacks {
 public:
    Watch(const clang::SourceManager& places, Seen& seen) : m_Places(places), m_Seen(seen) {}

    void InclusionDirective(clang::SourceLocation hash, const clang::Token&, clang::StringRef name,
                            bool angled, clang::CharSourceRange, const FileEntry* file, clang::StringRef,
                            clang::StringRef, const clang::Module*,
                            clang::SrcMgr::CharacteristicKind) override {
        m_Seen.includes[m_Places.getFileEntryForID(m_Places.getFileID(hash))].insert(file);
        if (m_Places.isInMainFile(hash)) {
            m_Seen.spelled[angled ? '<' + name.str() + '>' : '"' + name.str() + '"'] = file;
        }
    }

    void MacroExpands(const clang::Token& name, const clang::MacroDefinition& definition, clang::SourceRange,
                      const clang::MacroArgs*) override {
        const clang::SourceLocation place = name.getLocation();
        if (place.isFileID() && m_Places.isInMainFile(place)) {
            const clang::SourceLocation defined = definition.getMacroInfo()->getDefinitionLoc();
            m_Seen.macros.push_back({place, name.getIdentifierInfo()->getName().str(),
                                     m_Places.getFileEntryForID(m_Places.getFileID(defined))});
        }
    }

 private:
    const clang::SourceManager& m_Places;
    Seen& m_Seen;
};

class IncludedNames : public clang::ASTConsumer, public clang::RecursiveASTVisitor<IncludedNames> {
 public:
    IncludedNames(clang::CompilerInstance& compiler, std::vector<Part> parts)
        : m_Places(compiler.getSourceManager()),
          m_Diagnostics(compiler.getDiagnostics()),
          m_Parts(std::move(parts)) {
        compiler.getPreprocessor().addPPCallbacks(std::make_unique<Watch>(m_Places, m_Seen));
    }

    void HandleTranslationUnit(clang::ASTContext& context) override {
        for (const Part& part : m_Parts) {
            m_Reached.push_back(reachedFrom(part));
        }
        for (const MacroUse& use : m_Seen.macros) {
            if (use.definedIn != nullptr) {
                check(use.place, use.name, {use.definedIn}, {});
            }
        }
        for (clang::Decl* declaration : context.getTranslationUnitDecl()->decls()) {
            if (m_Places.isInMainFile(m_Places.getExpansionLoc(declaration->getLocation()))) {
                TraverseDecl(declaration);
            }
        }
    }

    bool VisitDeclRefExpr(clang::DeclRefExpr* use) { return named(use->getLocation(), use->getDecl()); }
    bool VisitMemberExpr(clang::MemberExpr* use) { return named(use->getMemberLoc(), use->getMemberDecl()); }
    bool VisitCXXConstructExpr(clang::CXXConstructExpr* use) {
        return named(use->getLocation(), use->getConstructor());
    }
    bool VisitTypedefTypeLoc(clang::TypedefTypeLoc use) {
        return named(use.getNameLoc(), use.getTypedefNameDecl());
    }
    bool VisitTagTypeLoc(clang::TagTypeLoc use) { return named(use.getNameLoc(), use.getDecl()); }
    bool VisitTemplateSpecializationTypeLoc(clang::TemplateSpecializationTypeLoc use) {
        return named(use.getTemplateNameLoc(), use.getTypePtr()->getTemplateName().getAsTemplateDecl());
    }

 private:
    [[nodiscard]] Files reachedFrom(const Part& part) const {
        Files reached;
        std::vector<const FileEntry*> waiting;
        const auto reach = [&](const FileEntry* file) {
            if (file != nullptr && reached.insert(file).second) {
                waiting.push_back(file);
            }
        };
        for (const std::string& include : part.includes) {
            const auto found = m_Seen.spelled.find(include);
            reach(found != m_Seen.spelled.end() ? found->second : nullptr);
        }
        while (!waiting.empty()) {
            const FileEntry* file = waiting.back();
            waiting.pop_back();
            const auto found = m_Seen.includes.find(file);
            if (found != m_Seen.includes.end()) {
                std::for_each(found->second.begin(), found->second.end(), reach);
            }
        }
        return reached;
    }

    [[nodiscard]] std::size_t partAt(clang::SourceLocation place) const {
        const unsigned line = m_Places.getExpansionLineNumber(place);
        const auto after = std::upper_bound(m_Parts.begin(), m_Parts.end(), line,
                                            [](unsigned l, const Part& part) { return l < part.firstLine; });
        return static_cast<std::size_t>(after - m_Parts.begin()) - 1;
    }

    bool named(clang::SourceLocation place, const clang::NamedDecl* name) {
        if (name == nullptr || place.isInvalid() || m_Places.isMacroBodyExpansion(place) ||
            !m_Places.isInMainFile(m_Places.getExpansionLoc(place))) {
            return true;
        }
        Files files;
        std::set<std::size_t> parts;
        const auto note = [&](const clang::Decl* declaration) {
            const clang::SourceLocation declared = m_Places.getExpansionLoc(declaration->getLocation());
            if (declared.isInvalid()) {
                return;
            }
            if (m_Places.isInMainFile(declared)) {
                parts.insert(partAt(declared));
            } else if (const FileEntry* file = m_Places.getFileEntryForID(m_Places.getFileID(declared))) {
                files.insert(file);
            }
        };
        const auto noteAll = [&](const clang::Decl* declaration) {
            std::for_each(declaration->redecls_begin(), declaration->redecls_end(), note);
        };
        noteAll(name);
        if (const auto* described = llvm::dyn_cast<clang::FunctionDecl>(name)) {
            if (const clang::FunctionDecl* pattern = described->getTemplateInstantiationPattern()) {
                noteAll(pattern);
            }
        }
        if (const auto* record = llvm::dyn_cast<clang::ClassTemplateSpecializationDecl>(name)) {
            noteAll(record->getSpecializedTemplate());
        }
        check(place, name->getQualifiedNameAsString(), files, parts);
        return true;
    }

    void check(clang::SourceLocation place, const std::string& name, const Files& files,
               const std::set<std::size_t>& parts) {
        const std::size_t part = partAt(place);
        const bool reached = (files.empty() && parts.empty()) || parts.count(part) > 0 ||
                             std::any_of(files.begin(), files.end(), [&](const FileEntry* file) {
                                 return m_Reached[part].count(file) > 0;
                             });
        if (!reached && m_Said.insert({part, name}).second) {
            const std::string where = files.empty() ? "another file" : (*files.begin())->getName().str();
            m_Diagnostics.Report(
                m_Places.getSpellingLoc(place),
                m_Diagnostics.getCustomDiagID(clang::DiagnosticsEngine::Error,
                                              "nothing that this file includes declares %0; %1 does"))
                << name << where;
        }
    }

    const clang::SourceManager& m_Places;
    clang::DiagnosticsEngine& m_Diagnostics;
    std::vector<Part> m_Parts;
    Seen m_Seen;
    std::vector<Files> m_Reached;
    std::set<std::pair<std::size_t, std::string>> m_Said;
};

class BesideTheChecks : public clang::PluginASTAction {
 protected:
    std::unique_ptr<clang::ASTConsumer> CreateASTConsumer(clang::CompilerInstance& compiler,
                                                          llvm::StringRef text) override {
        std::vector<Part> parts = partsOf(text.str());
        if (parts.empty()) {
            return std::make_unique<clang::ASTConsumer>();
        }
        return std::make_unique<IncludedNames>(compiler, std::move(parts));
    }

    bool ParseArgs(const clang::CompilerInstance&, const std::vector<std::string>&) override { return true; }

    ActionType getActionType() override { return AddBeforeMainAction; }
};

const clang::FrontendPluginRegistry::Add<BesideTheChecks> registered("included-names", "");

}  // namespace
