// A plug-in of Clang's: what checks look at are the project's own declarations. Those of the system's headers
// stay known, but nobody walks through them: clang-tidy would drop whatever it found there, after most of its
// time.

#include <clang/AST/ASTConsumer.h>
#include <clang/AST/ASTContext.h>
#include <clang/Basic/SourceManager.h>
#include <clang/Frontend/FrontendPluginRegistry.h>
#include <memory>
#include <string>
#include <vector>

namespace {

class OwnDeclarations : public clang::ASTConsumer {
 public:
    void HandleTranslationUnit(clang::ASTContext& context) override {
        const clang::SourceManager& places = context.getSourceManager();
        std::vector<clang::Decl*> own;
        for (clang::Decl* declaration : context.getTranslationUnitDecl()->decls()) {
            const clang::SourceLocation place = places.getExpansionLoc(declaration->getLocation());
            if (place.isValid() && !places.isInSystemHeader(place)) {
                own.push_back(declaration);
            }
        }
        context.setTraversalScope(own);
    }
};

class BeforeTheChecks : public clang::PluginASTAction {
 protected:
    std::unique_ptr<clang::ASTConsumer> CreateASTConsumer(clang::CompilerInstance&,
                                                          llvm::StringRef) override {
        return std::make_unique<OwnDeclarations>();
    }

    bool ParseArgs(const clang::CompilerInstance&, const std::vector<std::string>&) override { return true; }

    ActionType getActionType() override { return AddBeforeMainAction; }
};

const clang::FrontendPluginRegistry::Add<BeforeTheChecks> registered("own-declarations", "");

}  // namespace
