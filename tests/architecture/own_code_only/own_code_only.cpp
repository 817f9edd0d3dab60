// SPDX-License-Identifier: GPL-3.0-or-later
// A plugin that keeps clang-tidy to our own code. By itself it looks for faults in every header of the
// system, too, and then keeps quiet about those that it found there, which takes longer than all the rest.
#include <clang/AST/ASTConsumer.h>
#include <clang/AST/ASTContext.h>
#include <clang/Basic/SourceManager.h>
#include <clang/Frontend/FrontendPluginRegistry.h>

namespace {

class OwnCodeOnly final : public clang::ASTConsumer {
    void HandleTranslationUnit(clang::ASTContext& unit) override {
        std::vector<clang::Decl*> own;
        for (clang::Decl* declaration : unit.getTranslationUnitDecl()->decls()) {
            if (!unit.getSourceManager().isInSystemHeader(declaration->getLocation())) {
                own.push_back(declaration);
            }
        }
        unit.setTraversalScope(own);
    }
};

/// Runs of its own accord, before the checks do.
class BeforeTheChecks final : public clang::PluginASTAction {
    std::unique_ptr<clang::ASTConsumer> CreateASTConsumer(clang::CompilerInstance& /*compiler*/,
                                                          llvm::StringRef /*file*/) override {
        return std::make_unique<OwnCodeOnly>();
    }
    bool ParseArgs(const clang::CompilerInstance& /*compiler*/,
                   const std::vector<std::string>& /*arguments*/) override {
        return true;
    }
    ActionType getActionType() override { return AddBeforeMainAction; }
};

const clang::FrontendPluginRegistry::Add<BeforeTheChecks> kPlugin("own-code-only", "");

} // namespace
